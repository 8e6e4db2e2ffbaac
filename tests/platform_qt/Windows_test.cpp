// Every window of the program: it fits its design, and can be worked by the keyboard.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QTabWidget>
#include <QTest>

#include "platform/qt/Icons.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/WindowLoader.h"
#include "support/EveryWindow.h"

namespace lumarin::testing {

namespace {

QChar AccessKey(const QString& text) {
    const qsizetype at = QString(text).replace("&&", "  ").indexOf('&');
    return at < 0 ? QChar() : text[at + 1].toUpper();
}

/// "cmdOK.text" for each text that a design holds: they belong in the controllers.
std::vector<std::string> TextsInDesign(const std::string& form) {
    const auto window = qt::BuildWindow(form);
    std::vector<std::string> texts;
    const auto add = [&](const QObject& object, const char* property, const QString& text) {
        if (!text.isEmpty()) texts.push_back(object.objectName().toStdString() + "." + property);
    };
    for (const QObject* object : QList<QObject*>{window.get()} + window->findChildren<QObject*>()) {
        if (object->parent() != nullptr && object->parent()->objectName().startsWith("qt_")) continue;
        for (const char* property : {"text", "title", "windowTitle", "toolTip", "statusTip", "whatsThis",
                                     "accessibleName", "accessibleDescription", "placeholderText"})
            add(*object, property, object->property(property).toString());
        const auto* tabs = qobject_cast<const QTabWidget*>(object);
        for (int tab = 0; tabs != nullptr && tab < tabs->count(); ++tab)
            add(*tabs->widget(tab), "title", tabs->tabText(tab));
    }
    return texts;
}

}  // namespace

class Windows : public ::testing::Test {
protected:
    qt::QtDesktop desktop;
    EveryWindow windows{desktop};
    const std::vector<std::unique_ptr<Form>> forms = windows.Make();
};

TEST_F(Windows, EveryWindow_FitsItsDesign) {
    std::vector<std::string> designs = qt::DesignNames();
    for (const char* ofTests : {"frmEveryKind", "frmMismatched"}) std::erase(designs, ofTests);
    for (const auto& form : forms) {
        EXPECT_EQ(qt::Mismatches(*form), std::vector<std::string>()) << form->Name();
        EXPECT_EQ(TextsInDesign(form->Name()), std::vector<std::string>()) << form->Name();
        EXPECT_EQ(std::erase(designs, form->Name()), 1U) << form->Name();
    }
    EXPECT_EQ(designs, std::vector<std::string>()) << "designs without a form";
}

TEST_F(Windows, EveryControl_IsReachedByKeyboardAndHasAName) {
    for (const auto& form : forms) {
        form->Load();
        auto& window = *static_cast<QWidget*>(form->NativeWindow());
        QMap<QChar, QStringList> accessKeys;
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            const auto* button = qobject_cast<QAbstractButton*>(widget);
            const auto* label = qobject_cast<QLabel*>(widget);
            const auto* edit = qobject_cast<QLineEdit*>(widget);
            EXPECT_TRUE(edit == nullptr || edit->maxLength() == QLineEdit().maxLength())
                << "cuts what is pasted";
            const QString text = button != nullptr                    ? button->text()
                                 : label != nullptr && label->buddy() ? label->text()
                                                                      : "";
            if (!AccessKey(text).isNull()) accessKeys[AccessKey(text)] << widget->objectName();
            if (button == nullptr || form->Find(widget->objectName().toStdString()) == nullptr) continue;
            SCOPED_TRACE(form->Name() + "." + widget->objectName().toStdString());
            EXPECT_TRUE(button->focusPolicy() & Qt::TabFocus);
            if (!button->text().isEmpty()) continue;
            EXPECT_FALSE(button->icon().isNull());
            EXPECT_FALSE(button->toolTip().isEmpty());
        }
        // The captions of these two are the system's own; cmdAbort is seen only while several photos are
        // imported.
        accessKeys['A'].removeAll("cmdAbort");
        for (auto key = accessKeys.cbegin(); key != accessKeys.cend(); ++key)
            EXPECT_LE(key->size(), 1) << form->Name() << ": " << key->join(' ').toStdString();
    }
}

TEST_F(Windows, EveryButton_WithTheFocus_IsTheOneThatEnterPresses) {
    for (const auto& form : forms) {
        form->Load();
        auto& window = *static_cast<QWidget*>(form->NativeWindow());
        window.show();
        std::string pressed;
        for (Control* control : form->Controls())
            if (auto* button = dynamic_cast<Button*>(control))
                button->Click = [&pressed, button] { pressed += button->ObjectName(); };
        for (Control* control : form->Controls()) {
            if (control->Kind() != ControlKind::Button) continue;
            control->SetEnabled(true);
            control->SetVisible(true);
            auto& widget = *window.findChild<QWidget*>(QString::fromStdString(control->ObjectName()));
            widget.setFocus();
            QTest::keyClick(&widget, Qt::Key_Return);
            EXPECT_EQ(std::exchange(pressed, ""), control->ObjectName()) << form->Name();
        }
    }
}

TEST_F(Windows, EveryWindow_FitsTheSmallestScreen) {
    // 1600 x 1000 pixels at 200 percent, less a frame and a task bar.
    constexpr QSize Room(784, 430);
    for (const auto& form : forms) {
        form->Load();
        auto& window = *static_cast<QWidget*>(form->NativeWindow());
        const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
        EXPECT_TRUE(least.width() <= Room.width() && least.height() <= Room.height())
            << form->Name() << " needs " << least.width() << " x " << least.height();
    }
}

TEST_F(Windows, EveryTool_HasItsIcon) {
    for (const auto& form : forms)
        for (Control* control : form->Controls()) {
            const auto* bar = dynamic_cast<ToolBar*>(control);
            for (const ToolBar::Tool& tool : bar != nullptr ? bar->Tools() : std::vector<ToolBar::Tool>())
                EXPECT_EQ(qt::ToolIcon(QString::fromStdString(tool.icon)).isNull(), tool.icon.empty())
                    << tool.name;
        }
}

}  // namespace lumarin::testing
