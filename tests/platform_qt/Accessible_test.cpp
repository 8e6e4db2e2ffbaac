// What a screen reader hears of every window, and whether everything can be seen.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <set>

#include "host/drive/ScreenReader.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/Theme.h"
#include "support/EveryWindow.h"

namespace lumarin::testing {

namespace {

double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace

TEST(Accessible, EveryControlOfEveryWindow_HasItsRoleAndAName) {
    qt::QtDesktop desktop;
    EveryWindow windows(desktop);
    const std::set<ControlKind> decorates = {ControlKind::Shape, ControlKind::TabStrip};
    for (const auto& form : windows.Make()) {
        form->Load();
        auto& window = *static_cast<QWidget*>(form->NativeWindow());
        window.show();
        for (const Control* control : form->Controls()) {
            auto* widget = window.findChild<QWidget*>(QString::fromStdString(control->ObjectName()));
            if (widget == nullptr || decorates.contains(control->Kind())) continue;
            const QAccessible::Role role = QAccessible::queryAccessibleInterface(widget)->role();
            EXPECT_TRUE(role != QAccessible::NoRole && role != QAccessible::Client &&
                        role != QAccessible::LayeredPane)
                << form->Name() << "." << control->ObjectName();
        }
        EXPECT_EQ(host::UnnamedParts(window).join("\n").toStdString(), "");
    }
}

TEST(Palette, TextAndFocus_StandOutLightAndDark) {
    using Role = QPalette::ColorRole;
    struct Pair {
        Role front, back;
        double least;
    };
    constexpr double Text = 4.5, Focus = 3;
    const Pair pairs[] = {
        {Role::WindowText, Role::Window, Text},
        {Role::Text, Role::Base, Text},
        {Role::Text, Role::AlternateBase, Text},
        {Role::ButtonText, Role::Button, Text},
        {Role::HighlightedText, Role::Highlight, Text},
        {Role::PlaceholderText, Role::Base, Text},
        {Role::ToolTipText, Role::ToolTipBase, Text},
        {Role::Link, Role::Base, Text},
        {Role::Link, Role::Window, Text},
        {qt::FocusColour, Role::Window, Focus},
        {qt::FocusColour, Role::Base, Focus},
        {qt::FocusColour, Role::Button, Focus},
    };
    for (const auto theme : {qt::Theme::Light, qt::Theme::Dark})
        for (const auto group : {QPalette::Active, QPalette::Inactive})
            for (const auto& [front, back, least] : pairs) {
                const QPalette palette = qt::PaletteOf(theme);
                EXPECT_GE(Contrast(palette.color(group, front), palette.color(group, back)), least)
                    << (theme == qt::Theme::Dark ? "dark: " : "light: ") << front << " on " << back;
            }
}

}  // namespace lumarin::testing
