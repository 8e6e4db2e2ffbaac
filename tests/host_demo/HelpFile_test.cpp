#include "host/demo/HelpFile.h"

#include "support/EveryWindow.h"
#include "support/ScriptedDesktop.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>

namespace host {

std::multiset<std::string> Captured(const std::string& text, const char* pattern) {
    const std::regex expression(pattern);
    std::multiset<std::string> found;
    for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; ++at)
        found.insert((*at)[1].str());
    return found;
}

TEST(HelpFile, EveryWindow_OpensAPageOfItsOwn) {
    const std::multiset<std::string> pages = Captured(HelpText(), "<section id=\"([0-9]+)\">");
    lumarin::testing::ScriptedDesktop desktop;
    lumarin::testing::EveryWindow windows(desktop);
    std::set<std::string> opened;
    for (const auto& form : windows.Make()) {
        form->HelpPressed();
        ASSERT_FALSE(desktop.helpPages.empty()) << form->Name();
        const std::string page = std::to_string(desktop.helpPages.back().second);
        EXPECT_EQ(pages.count(page), 1U) << form->Name() << " has no page " << page;
        EXPECT_TRUE(opened.insert(page).second) << form->Name() << " shares page " << page;
    }
    EXPECT_EQ(opened.size(), pages.size()) << "a page is of no window";
}

TEST(HelpFile, Links_LeadToPlacesInTheFile) {
    const std::string help = HelpText();
    const std::multiset<std::string> places = Captured(help, "id=\"([^\"]+)\"");
    const std::multiset<std::string> links = Captured(help, "(?:href|src)=\"([^\"]*)\"");
    EXPECT_FALSE(links.empty());
    for (const std::string& link : links)
        EXPECT_TRUE(link.starts_with('#') && places.count(link.substr(1)) == 1) << link;
}

}  // namespace host
