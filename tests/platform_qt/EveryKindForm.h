#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QWidget>
#include <QtTest/QTest>

#include "forms/Controls.h"
#include "forms/ListView.h"
#include "forms/ToolBar.h"
#include "platform/qt/QtDesktop.h"

namespace lumarin::testing {

/// Lets events happen until this holds; a busy machine may take its time.
inline bool Becomes(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 600'000); }

class EveryKindForm : public Form {
public:
    explicit EveryKindForm(Desktop& desktop) : Form(desktop, "frmEveryKind") { SetCaption("Every kind"); }

    TextBox txtText{*this, "txtText"};
    Button cmdDo{*this, "cmdDo", {"&Do"}}, cmdHidden{*this, "cmdHidden"};
    Label lblNote{*this, "lblNote"};
    ComboBox cmbChoice{*this, "cmbChoice", {"&Choice"}};
    Slider hsbLevel{*this, "hsbLevel"};
    ListView lisRows{*this, "lisRows"}, lisPhotos{*this, "lisPhotos"};
    Frame fraStage{*this, "fraStage"};
    PictureBox picOnStage{*this, "picOnStage"}, picPhoto{*this, "picPhoto"};
    Shape shpBox{*this, "shpBox"};
    lumarin::Timer tmrTick{*this, "tmrTick"};
    Animation aniFilm{*this, "aniFilm"};
    ToolBar Menu{*this, "Menu"};
    ControlArray<OptionButton, 2> optWay{*this, "optWay", {{"one"}, {"other"}}};
    TabStrip sstPages{*this, "sstPages", {"First", "Second"}};
    NumberBox numCount{*this, "numCount"};
    ProgressBar pbDone{*this, "pbDone"};

    std::function<bool(CloseReason)> queryClose = [](CloseReason) { return true; };
    int activations = 0;

protected:
    bool OnQueryClose(CloseReason reason) override { return queryClose(reason); }
    void OnActivate() override { ++activations; }
};

/// A shown window with a control of every kind.
class EveryKindTest : public ::testing::Test {
protected:
    void Show() {
        form->Show(nullptr);
        Settle();
    }
    static void Settle() { QTest::qWait(1); }

    QWidget& Window() { return *static_cast<QWidget*>(form->NativeWindow()); }
    template <class WidgetType = QWidget>
    WidgetType& Widget(const char* name) {
        auto* widget = Window().findChild<QWidget*>(name);
        return dynamic_cast<WidgetType&>(*widget);
    }

    qt::QtDesktop desktop;
    std::unique_ptr<EveryKindForm> form = std::make_unique<EveryKindForm>(desktop);
};

}  // namespace lumarin::testing
