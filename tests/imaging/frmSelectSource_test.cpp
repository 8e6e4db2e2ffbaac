#include "imaging/frmSelectSource.h"

#include <gtest/gtest.h>

#include "support/ScriptedDesktop.h"

namespace lumarin {
namespace {

TEST(frmSelectSource, Choose_EveryWayOut_GivesTheChosenOrTheCurrentSource) {
    const struct {
        const char* current;
        std::function<void(frmSelectSource&)> play;
        const char* chosen;
    } cases[] = {
        {"usb:2", [](auto& window) { window.lisSources.Select(0), window.cmdOK.Press(); }, "usb:1"},
        {"usb:2", [](auto& window) { window.cmdOK.Press(); }, "usb:2"},
        {"gone", [](auto& window) { window.lisSources.DoubleClicked(); }, "usb:1"},
        {"usb:2", [](auto& window) { window.lisSources.Select(0), window.cmdCancel.Press(); }, "usb:2"},
    };
    testing::ScriptedDesktop desktop;
    for (const auto& c : cases) {
        frmSelectSource window(desktop);
        desktop.Play("frmSelectSource", c.play);
        EXPECT_EQ(
            window.Choose({{"usb:1", "Maker", "Flat 1", ""}, {"usb:2", "", "", ""}}, c.current, nullptr),
            c.chosen);
        EXPECT_EQ(window.lisSources.Cell(1, 0), "usb:2") << "a device without a name of its own";
    }
    desktop.Expect(NoScannerSource);
    EXPECT_EQ(frmSelectSource(desktop).Choose({}, "usb:2", nullptr), "usb:2");
    desktop.VerifyAllUsed();
}

}  // namespace
}  // namespace lumarin
