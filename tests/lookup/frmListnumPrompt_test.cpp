#include "lookup/frmListnumPrompt.h"

#include "lookup/frmFindProperty.h"
#include "support/WindowTest.h"

namespace lumarin {

class ListnumPrompt : public testing::WindowTest {
protected:
    /// What the prompt gives after these keys and then `play`, who cancels in the end if it is still open.
    std::string Display(bool allowList, std::string_view keys, const std::function<void()>& play) {
        desktop.Play("frmListnumPrompt", [&](Form&) {
            for (const char key : keys)
                if (prompt.txtPropertyId.PressKey(key))
                    prompt.txtPropertyId.SetText(prompt.txtPropertyId.Text() + key);
            play();
            if (prompt.IsShown()) prompt.cmdCancel.Press();
        });
        return prompt.Display(allowList);
    }

    frmListnumPrompt prompt{{desktop, link, engine}};
};

TEST_F(ListnumPrompt, Keys_Typed_AreFiltered) {
    EXPECT_EQ(Display(false, "12a,3\r", [] {}), "123");  // Enter is OK
    EXPECT_EQ(Display(true, "1,2-.5 ", [&] { prompt.cmdOK.Press(); }), "1,2.5");
    EXPECT_EQ(Display(false, "12", [&] { prompt.Unload(CloseReason::Frame); }), "");
    for (const int kept : {8, 22, 3}) EXPECT_TRUE(prompt.txtPropertyId.PressKey(kept)) << kept;
    for (const int discarded : {24, 1, 0x661})
        EXPECT_FALSE(prompt.txtPropertyId.PressKey(discarded)) << discarded;
}

TEST_F(ListnumPrompt, Ok_Pressed_TakesNumericTextsOnly) {
    const auto confirmed = [&](const char* text) {
        return Display(false, "", [&] {
            prompt.txtPropertyId.SetText(text);
            prompt.cmdOK.Press();
            EXPECT_TRUE(!prompt.IsShown() || prompt.txtPropertyId.Text() == text);
        });
    };
    for (const char* numeric : {" 100,123 ", "(5)", "100123,100124"}) EXPECT_EQ(confirmed(numeric), numeric);
    for (const char* other : {"", "12x"}) {
        desktop.Expect("Invalid entry - must be numeric", "Input Error");
        EXPECT_EQ(confirmed(other), "") << other;
    }
}

TEST_F(ListnumPrompt, Browse_ChosenListingEndsIt_CancelledSearchDoesNot) {
    host.onQuery = [](const std::string&) {
        return testing::FakeTable{
            {"SelectedId", "OwnerName", "StreetNumber", "StreetDirection", "StreetName"},
            {{100123, {}, {}, {}, {}}}};
    };
    desktop.Play("frmFindProperty", [](frmFindProperty& search) { search.cmdCancel.Press(); });
    desktop.Play("frmFindProperty", [](frmFindProperty& search) {
        EXPECT_EQ(search.cmbListingOwner.Text(), "My listings");
        search.List.Select(0);
        search.cmdOK.Press();
    });
    const std::string chosen = Display(false, "77", [&] {
        prompt.cmdBrowse.Press();
        EXPECT_EQ(prompt.txtPropertyId.Text(), "77");
        prompt.cmdBrowse.Press();
        EXPECT_FALSE(prompt.IsShown());
    });
    EXPECT_EQ(chosen, "100123");
}

}  // namespace lumarin
