#include "lookup/frmListnumPrompt.h"

#include <gtest/gtest.h>

#include "lookup/frmFindProperty.h"
#include "support/FakeHost.h"
#include "support/ScriptedDesktop.h"

namespace lumarin {
namespace {

using testing::FakeHost;
using testing::FakeTable;
using testing::ScriptedDesktop;

class ListnumPrompt : public ::testing::Test {
protected:
    void SetUp() override { link.Set(host); }
    void TearDown() override { desktop.VerifyAllUsed(); }

    std::string Display(bool allowList, std::function<void()> play) {
        desktop.Play("frmListnumPrompt", [play = std::move(play)](Form&) { play(); });
        return prompt.Display(allowList);
    }
    /// What stands in the box after these keys were typed.
    std::string Type(std::string_view keys) {
        for (const char key : keys)
            if (prompt.txtPropertyId.PressKey(key))
                prompt.txtPropertyId.SetText(prompt.txtPropertyId.Text() + key);
        return prompt.txtPropertyId.Text();
    }

    FakeHost host;
    ScriptedDesktop desktop;
    HostLink link;
    NoEngineVersion engine;
    frmListnumPrompt prompt{{desktop, link, engine}};
};

TEST_F(ListnumPrompt, Keys_Typed_AreFiltered) {
    EXPECT_EQ(Display(false, [&] { EXPECT_EQ(Type("12a,3\r"), "123"); }), "123");  // Enter is OK
    EXPECT_EQ(Display(true,
                      [&] {
                          EXPECT_EQ(Type("1,2-.5 "), "1,2.5");
                          prompt.cmdOK.Press();
                      }),
              "1,2.5");
    for (const int kept : {8, 22, 3}) EXPECT_TRUE(prompt.txtPropertyId.PressKey(kept)) << kept;
    for (const int discarded : {24, 1, 0x661})
        EXPECT_FALSE(prompt.txtPropertyId.PressKey(discarded)) << discarded;
}

TEST_F(ListnumPrompt, Ok_Pressed_TakesNumericTextsOnly) {
    for (const char* numeric :
         {"100123", " 100,123 ", "-5", "+1.", ".5", "1,000.25", "1e3", "2E-3", "100123,100124"})
        EXPECT_EQ(Display(false,
                          [&] {
                              prompt.txtPropertyId.SetText(numeric);
                              prompt.cmdOK.Press();
                          }),
                  numeric);
    for (const char* other : {"", " ", ".", "-", "12x", "1 2", "--1", "-+1", "+-1", "1.2,3", ",1", "1.2.3",
                              "e5", "1e", "inf", "nan", "0x10", "1e999"})
        EXPECT_EQ(Display(false,
                          [&] {
                              prompt.txtPropertyId.SetText(other);
                              desktop.Expect("Invalid entry - must be numeric");
                              prompt.cmdOK.Press();
                              EXPECT_TRUE(prompt.IsShown()) << other;
                              EXPECT_EQ(prompt.txtPropertyId.Text(), other);
                              prompt.cmdCancel.Press();
                          }),
                  "");
    EXPECT_EQ(desktop.messages.back().title, "Input Error");
    EXPECT_EQ(desktop.messages.back().icon, Icon::Critical);
    EXPECT_EQ(Display(false,
                      [&] {
                          Type("12");
                          prompt.Unload(CloseReason::Frame);
                      }),
              "");
}

TEST_F(ListnumPrompt, Browse_ChosenListingEndsIt_CancelledSearchDoesNot) {
    host.onQuery = [](const std::string&) {
        return FakeTable{{"SelectedId", "OwnerName", "StreetNumber", "StreetDirection", "StreetName"},
                         {{FieldValue(std::int64_t{100123}), {}, {}, {}, {}}}};
    };
    desktop.Play("frmFindProperty",
                 [](Form& form) { static_cast<frmFindProperty&>(form).cmdCancel.Press(); });
    desktop.Play("frmFindProperty", [](Form& form) {
        auto& search = static_cast<frmFindProperty&>(form);
        EXPECT_EQ(search.cmbListingOwner.Text(), "My listings");
        search.List.Select(0);
        search.cmdOK.Press();
    });
    EXPECT_EQ(Display(false,
                      [&] {
                          Type("77");
                          prompt.cmdBrowse.Press();
                          EXPECT_TRUE(prompt.IsShown());
                          EXPECT_EQ(prompt.txtPropertyId.Text(), "77");
                          prompt.cmdBrowse.Press();
                          EXPECT_FALSE(prompt.IsShown());
                      }),
              "100123");
}

}  // namespace
}  // namespace lumarin
