// What a screen reader hears of every window, and whether everything can be seen.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <set>

#include "platform/qt/QtDesktop.h"
#include "platform/qt/Theme.h"
#include "support/EveryWindow.h"

namespace lumarin::testing {

namespace {

/// What a person works or reads, whatever it belongs to.
const std::set<QAccessible::Role> Named = {
    QAccessible::Button,      QAccessible::ButtonMenu, QAccessible::EditableText, QAccessible::ComboBox,
    QAccessible::RadioButton, QAccessible::CheckBox,   QAccessible::Slider,       QAccessible::Tree,
    QAccessible::Table,       QAccessible::List,       QAccessible::PageTab,      QAccessible::MenuItem,
    QAccessible::ProgressBar, QAccessible::Graphic,    QAccessible::Animation,    QAccessible::SpinBox,
    QAccessible::Dialog,      QAccessible::Window};

/// "frmX > groupBox > cmdY" for each of them without a name, below `node`.
void FindUnnamed(QAccessibleInterface& node, const QString& path, QStringList& unnamed) {
    if (node.role() == QAccessible::ScrollBar || node.state().invisible) return;
    const QString here =
        path + " > " + (node.object() != nullptr ? node.object()->objectName() : QString("item"));
    const auto hasName = [](const QAccessibleInterface& one) {
        return !one.text(QAccessible::Name).trimmed().isEmpty();
    };
    // A picture on a stage is what the stage is called.
    const bool onStage = node.role() == QAccessible::Graphic &&
                         node.parent()->role() == QAccessible::Grouping && hasName(*node.parent());
    if (Named.contains(node.role()) && !hasName(node) && !onStage) unnamed << here;
    for (int i = 0; i < node.childCount(); ++i)
        if (QAccessibleInterface* child = node.child(i); child != nullptr) FindUnnamed(*child, here, unnamed);
}

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
        QStringList unnamed;
        FindUnnamed(*QAccessible::queryAccessibleInterface(&window), "", unnamed);
        EXPECT_EQ(unnamed.join("\n").toStdString(), "");
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
