#include "documents/frmPromptLinkText.h"

#include <gtest/gtest.h>

#include "support/ScriptedDesktop.h"

namespace lumarin {
namespace {

constexpr const char* NoDescription = "Please enter a description for your document";
constexpr const char* NoAddress = "Please enter the internet address (URL) where your document is located";
constexpr const char* ProgramFile = "Internet address (URL) cannot point to an exe file";

TEST(frmPromptLinkText, OK_ChecksInOrderAndKeepsTheWindowOpen) {
    const struct {
        bool descriptionOnly;
        const char *description, *address, *message, *title;
    } cases[] = {{false, "  ", "", NoDescription, "Document description is missing"},
                 {true, "", "http://x", NoDescription, "Document description is missing"},
                 {false, "Map", " ", NoAddress, "Document URL is missing"},
                 {false, "Map", "http://x/a.Exe ", ProgramFile, "Invalid Document URL"},
                 {false, " Map ", " http://x/a.exe?x=1 ", nullptr, nullptr},
                 {false, "Map", "x.exe/", nullptr, nullptr},
                 {true, "Map", "", nullptr, nullptr}};
    for (const auto& c : cases) {
        testing::ScriptedDesktop desktop;
        frmPromptLinkText window(desktop);
        desktop.Play("frmPromptLinkText", [&](Form&) {
            EXPECT_EQ(window.fraUrl.Visible(), !c.descriptionOnly);
            window.txtLinkText.SetText(c.description);
            window.txtUrl.SetText(c.address);
            if (c.message != nullptr) desktop.Expect(c.message);
            window.cmdOK.Press();
            EXPECT_EQ(window.IsShown(), c.message != nullptr);
            if (window.IsShown() && c.descriptionOnly) window.Unload(CloseReason::Frame);
            if (window.IsShown()) window.cmdCancel.Press();
        });
        window.Display(c.descriptionOnly);
        EXPECT_EQ(window.Cancelled(), c.message != nullptr);
        if (c.message != nullptr) {
            EXPECT_EQ(desktop.messages.at(0).title, c.title);
        }
        EXPECT_EQ(window.LinkText().find(' '), std::string::npos);
        EXPECT_EQ(window.txtUrl.Text(), window.Url());
        desktop.VerifyAllUsed();
    }
}

}  // namespace
}  // namespace lumarin
