#include "imaging/frmSelectSource.h"

#include "support/ScriptedDesktop.h"

#include <gtest/gtest.h>

namespace lumarin {
namespace {

using lumarin::testing::ScriptedDesktop;

const std::vector<ScannerSource> TwoSources = {{"usb:1", "Maker", "Flat 1", "flatbed scanner"},
                                               {"usb:2", "", "", ""}};

std::string Chosen(const std::string& current, const std::function<void(frmSelectSource&)>& play) {
    ScriptedDesktop desktop;
    frmSelectSource window(desktop);
    desktop.Play("frmSelectSource", [&](Form&) { play(window); });
    const std::string chosen = window.Choose(TwoSources, current, nullptr);
    desktop.VerifyAllUsed();
    return chosen;
}

TEST(frmSelectSource_Choose, GivesTheSourceThatWasChosen) {
    EXPECT_EQ(Chosen("usb:2",
                     [](frmSelectSource& window) {
                         EXPECT_EQ(window.lisSources.Selected(), 1);
                         EXPECT_EQ(window.lisSources.Cell(1, 0),
                                   "usb:2");  // a device without a name of its own
                         window.lisSources.Select(0);
                         window.cmdOK.Press();
                     }),
              "usb:1");
    EXPECT_EQ(Chosen("gone", [](frmSelectSource& window) { window.lisSources.DoubleClicked(); }), "usb:1");
}

TEST(frmSelectSource_Choose, CancelKeepsTheSource) {
    EXPECT_EQ(Chosen("usb:2",
                     [](frmSelectSource& window) {
                         window.lisSources.Select(0);
                         window.cmdCancel.Press();
                     }),
              "usb:2");
}

TEST(frmSelectSource_Choose, NoSource_IsSaid) {
    ScriptedDesktop desktop;
    frmSelectSource window(desktop);
    desktop.Expect(NoScannerSource);
    EXPECT_EQ(window.Choose({}, "usb:2", nullptr), "usb:2");
    desktop.VerifyAllUsed();
}

}  // namespace
}  // namespace lumarin
