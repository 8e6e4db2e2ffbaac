#include "documents/frmPromptLinkText.h"

#include "support/WindowTest.h"

namespace lumarin {

using PromptLinkText = testing::WindowTest;

TEST_F(PromptLinkText, OK_ChecksInOrderAndKeepsTheWindowOpen) {
    const std::string noDescription = "Please enter a description for your document",
                      noAddress = "Please enter the internet address (URL) where your document is located",
                      programFile = "Internet address (URL) cannot point to an exe file";
    const struct {
        bool descriptionOnly;
        const char *description, *address;
        std::string refusal;
    } cases[] = {
        {false, "  ", "", noDescription},
        {true, "", "http://x", noDescription},
        {false, "Map", " ", noAddress},
        {false, "Map", "http://x/a.Exe ", programFile},
        {false, " Map ", " http://x/a.exe?x=1 ", ""},
        {true, "Map", "", ""},
    };
    for (const auto& c : cases) {
        const bool refused = !c.refusal.empty();
        frmPromptLinkText window(desktop);
        desktop.Play("frmPromptLinkText", [&](Form&) {
            EXPECT_EQ(window.fraUrl.Visible(), !c.descriptionOnly);
            window.txtLinkText.SetText(c.description);
            window.txtUrl.SetText(c.address);
            if (refused) desktop.Expect(c.refusal);
            window.cmdOK.Press();
            EXPECT_EQ(window.IsShown(), refused);
            if (refused && c.descriptionOnly) window.Unload(CloseReason::Frame);
            if (window.IsShown()) window.cmdCancel.Press();
        });
        window.Display(c.descriptionOnly);
        EXPECT_EQ(window.Cancelled(), refused);
        EXPECT_EQ((window.LinkText() + window.Url()).find(' '), std::string::npos);
    }
}

}  // namespace lumarin
