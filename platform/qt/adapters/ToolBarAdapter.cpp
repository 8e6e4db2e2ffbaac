#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <map>

#include "forms/ToolBar.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/Icons.h"
#include "platform/qt/adapters/Adapters.h"
#include "platform/qt/widgets/MenuSearch.h"

namespace lumarin::qt {

namespace {

/// What decides on the actions, and on what stands in which band.
bool SameStructure(const ToolBar::Tool& left, const ToolBar::Tool& right) {
    return left.name == right.name && left.icon == right.icon && left.tools == right.tools;
}

bool SameTexts(const ToolBar::Tool& left, const ToolBar::Tool& right) {
    return left.caption == right.caption && left.shortCaption == right.shortCaption &&
           left.description == right.description && left.shortcut == right.shortcut &&
           left.checkable == right.checkable;
}

bool SameBand(const ToolBar::Band& left, const ToolBar::Band& right) {
    return left.name == right.name && left.kind == right.kind && left.tools == right.tools;
}

/// Removes what is no longer wanted from a map of objects by name, and the objects with it.
template <class Object, class Wanted>
void Prune(std::map<std::string, Object*>& objects, Wanted wanted) {
    for (auto at = objects.begin(); at != objects.end();) {
        if (wanted(at->first)) {
            ++at;
            continue;
        }
        at->second->setObjectName({});  // it may live on until the events that run now have ended
        at->second->deleteLater();
        at = objects.erase(at);
    }
}

/// In the menu bar an action with an icon would show only that; this one shows the text and does the same.
QAction* StandInFor(QAction& action, QWidget& menuBar) {
    auto* standIn = new QAction(&menuBar);
    const auto follow = [standIn, &action] {
        standIn->setText(action.text());
        standIn->setStatusTip(action.statusTip());
        standIn->setEnabled(action.isEnabled());
    };
    follow();
    standIn->setMenu(action.menu());
    QObject::connect(&action, &QAction::changed, standIn, follow);
    QObject::connect(standIn, &QAction::triggered, &action, [&action] { action.trigger(); });
    return standIn;
}

/// Each tool is one action, which all bands share; each group is one menu. They stay the same objects as
/// long as their tool is there, so that a tool may change the bands from within its own click.
class ToolBarAdapter final : public AdapterFor<ToolBar, QMenuBar> {
public:
    ToolBarAdapter(ToolBar& control, QMenuBar& menuBar)
        : AdapterFor(control, menuBar), window_(static_cast<QMainWindow&>(*menuBar.window())) {
        window_.setContextMenuPolicy(Qt::NoContextMenu);  // the toolbars are not to be switched off
    }

private:
    void ShowState() override;
    bool IsBuilt() const;
    void Build();
    QAction* ActionOf(const ToolBar::Tool& tool);
    void ShowDesign(const ToolBar::Tool& tool, QAction& action);
    void BuildBand(const ToolBar::Band& band);
    void Fill(QWidget& container, const std::vector<std::string>& tools);
    QToolBar* BarOf(const ToolBar::Band& band);
    QMenu* ContextMenuOf(const ToolBar::Band& band);
    void Clicked(const std::string& name);

    QMainWindow& window_;
    std::vector<ToolBar::Tool> tools_;  ///< as they were built
    std::vector<ToolBar::Band> bands_;
    std::map<std::string, QAction*> actions_;
    std::map<std::string, QMenu*> groups_;
    /// The menus' own actions: once a stand-in has a menu too, the menu names that one as its action.
    std::map<const QMenu*, QAction*> groupActions_;
    std::map<std::string, QToolBar*> bars_;
    std::map<std::string, QMenu*> contextMenus_;
};

void ToolBarAdapter::ShowState() {
    if (!IsBuilt()) Build();
    for (std::size_t i = 0; i < tools_.size(); ++i) {
        const ToolBar::Tool& tool = Bound()->Tools()[i];
        if (!SameTexts(tool, tools_[i])) ShowDesign(tools_[i] = tool, *ActionOf(tool));
    }
    for (const ToolBar::Tool& tool : Bound()->Tools()) {
        QAction& action = *ActionOf(tool);
        action.setEnabled(tool.enabled && Bound()->Enabled());
        if (tool.checkable) action.setChecked(tool.checked);
    }
}

bool ToolBarAdapter::IsBuilt() const {
    const auto& tools = Bound()->Tools();
    const auto& bands = Bound()->Bands();
    return std::equal(tools.begin(), tools.end(), tools_.begin(), tools_.end(), SameStructure) &&
           std::equal(bands.begin(), bands.end(), bands_.begin(), bands_.end(), SameBand);
}

void ToolBarAdapter::Build() {
    tools_ = Bound()->Tools();
    bands_ = Bound()->Bands();
    const auto isTool = [this](const std::string& name) { return Bound()->Has(name); };
    const auto isGroup = [&](const std::string& name) {
        return isTool(name) && !Bound()->At(name).tools.empty();
    };
    const auto isBand = [this](ToolBar::BandKind kind) {
        return [this, kind](const std::string& name) {
            return std::any_of(bands_.begin(), bands_.end(), [&](const ToolBar::Band& band) {
                return band.name == name && band.kind == kind;
            });
        };
    };
    Prune(actions_, [&](const std::string& name) { return isTool(name) && !isGroup(name); });
    Prune(groups_, isGroup);
    Prune(bars_, isBand(ToolBar::BandKind::ToolBar));
    Prune(contextMenus_, isBand(ToolBar::BandKind::ContextMenu));

    for (const ToolBar::Tool& tool : tools_) ShowDesign(tool, *ActionOf(tool));
    for (const ToolBar::Tool& tool : tools_)
        if (!tool.tools.empty()) Fill(*groups_.at(tool.name), tool.tools);
    for (const ToolBar::Band& band : bands_) BuildBand(band);
}

QAction* ToolBarAdapter::ActionOf(const ToolBar::Tool& tool) {
    if (!tool.tools.empty()) {
        QMenu*& menu = groups_[tool.name];
        if (menu == nullptr) {
            menu = new QMenu(&window_);
            new MenuSearch(*menu);
            groupActions_[menu] = menu->menuAction();
            connect(menu, &QMenu::aboutToShow, this, [this, name = tool.name] {
                if (Bound() != nullptr) Bound()->OpenGroup(name);
            });
        }
        return groupActions_.at(menu);
    }
    QAction*& action = actions_[tool.name];
    if (action == nullptr) {
        action = new QAction(&window_);
        window_.addAction(action);  // a shortcut works even if the tool stands in a context menu only
        connect(action, &QAction::triggered, this, [this, name = tool.name] { Clicked(name); });
    }
    return action;
}

void ToolBarAdapter::ShowDesign(const ToolBar::Tool& tool, QAction& action) {
    action.setObjectName(ToQt(tool.name));
    action.setText(ToQt(tool.caption));
    if (!tool.shortCaption.empty()) action.setIconText(ToQt(tool.shortCaption));
    const QString description = ToQt(tool.description);
    action.setStatusTip(description);
    QString toolTip = description.isEmpty() ? action.iconText() : description;
    const auto shortcuts = QKeySequence::listFromString(ToQt(tool.shortcut), QKeySequence::PortableText);
    if (!shortcuts.isEmpty())
        toolTip += QStringLiteral(" (%1)").arg(shortcuts.front().toString(QKeySequence::PortableText));
    action.setToolTip(toolTip);
    action.setShortcuts(shortcuts);
    action.setCheckable(tool.checkable);
    action.setIcon(tool.icon.empty() ? QIcon() : ToolIcon(ToQt(tool.icon)));
}

void ToolBarAdapter::BuildBand(const ToolBar::Band& band) {
    switch (band.kind) {
        case ToolBar::BandKind::MenuBar:
            return Fill(View(), band.tools);
        case ToolBar::BandKind::ToolBar:
            return Fill(*BarOf(band), band.tools);
        case ToolBar::BandKind::ContextMenu:
            return Fill(*ContextMenuOf(band), band.tools);
    }
}

void ToolBarAdapter::Fill(QWidget& container, const std::vector<std::string>& tools) {
    const bool isMenuBar = qobject_cast<QMenuBar*>(&container) != nullptr;
    for (QAction* action : container.actions()) {
        container.removeAction(action);
        if (action->parent() == &container) action->deleteLater();  // separators and stand-ins
    }
    for (const std::string& name : tools) {
        if (name == "-") {
            auto* separator = new QAction(&container);
            separator->setSeparator(true);
            container.addAction(separator);
        } else if (Bound()->Has(name)) {  // a band may name a tool that is added later
            QAction* action = ActionOf(Bound()->At(name));
            container.addAction(isMenuBar && !action->icon().isNull() ? StandInFor(*action, container)
                                                                      : action);
        }
    }
    auto* bar = qobject_cast<QToolBar*>(&container);
    if (bar == nullptr) return;
    for (QAction* action : bar->actions())
        if (action->menu() != nullptr)
            qobject_cast<QToolButton*>(bar->widgetForAction(action))->setPopupMode(QToolButton::InstantPopup);
}

QToolBar* ToolBarAdapter::BarOf(const ToolBar::Band& band) {
    QToolBar*& bar = bars_[band.name];
    if (bar == nullptr) {
        bar = new QToolBar(&window_);
        if (auto* more = bar->findChild<QToolButton*>("qt_toolbar_ext_button"))
            more->setAccessibleName("More");
        bar->setObjectName(ToQt(band.name));
        bar->setWindowTitle(ToQt(band.name));
        bar->setMovable(false);
        bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        window_.addToolBar(bar);
    }
    return bar;
}

QMenu* ToolBarAdapter::ContextMenuOf(const ToolBar::Band& band) {
    QMenu*& menu = contextMenus_[band.name];
    if (menu == nullptr) {
        menu = new QMenu(&window_);
        menu->setObjectName(ToQt(band.name));
    }
    return menu;
}

void ToolBarAdapter::Clicked(const std::string& name) {
    if (Bound() == nullptr) return;
    // The toolkit turns a check mark by itself; what it shows is the code's to say.
    const ToolBar::Tool& tool = Bound()->At(name);
    if (tool.checkable) ActionOf(tool)->setChecked(tool.checked);
    // The action, and this name with it, may go meanwhile.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const std::string clicked = name;
    Bound()->ClickTool(clicked);
}

}  // namespace

AdapterPtr MakeToolBarAdapter(Control& control, QWidget& widget) {
    return std::make_unique<ToolBarAdapter>(static_cast<ToolBar&>(control), static_cast<QMenuBar&>(widget));
}

}  // namespace lumarin::qt
