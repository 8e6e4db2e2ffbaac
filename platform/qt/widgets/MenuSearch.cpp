#include "platform/qt/widgets/MenuSearch.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>

#include <algorithm>

namespace lumarin::qt {

namespace {

constexpr int LongestPause = 1500;  // milliseconds; after it a new word begins

bool HasAccessKey(const QAction* action) { return action->text().remove("&&").contains('&'); }

QString ShownText(const QAction& action) { return action.text().replace("&&", "&"); }

}  // namespace

MenuSearch::MenuSearch(QMenu& menu) : QObject(&menu), menu_(menu) { menu.installEventFilter(this); }

bool MenuSearch::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Show) typed_.clear();
    return event->type() == QEvent::KeyPress && Typed(static_cast<QKeyEvent&>(*event));
}

/// True when the key belongs to the word that is typed.
bool MenuSearch::Typed(const QKeyEvent& key) {
    if (!typed_.isEmpty() && sinceLast_.elapsed() > LongestPause) typed_.clear();
    const bool isLetter = key.text().size() == 1 && key.text().front().isPrint() &&
                          !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    const bool pressesEntry = typed_.isEmpty() && key.key() == Qt::Key_Space;
    const QList<QAction*> entries = menu_.actions();
    if (!isLetter || pressesEntry || std::any_of(entries.begin(), entries.end(), HasAccessKey)) return false;
    typed_ += key.text();
    sinceLast_.start();
    if (QAction* found = Found(); found != nullptr) menu_.setActiveAction(found);
    return true;
}

/// The first such entry from the active one on. One letter again and again leads from entry to entry.
QAction* MenuSearch::Found() const {
    const bool isOneLetter = typed_.count(typed_.front(), Qt::CaseInsensitive) == typed_.size();
    const QString start = isOneLetter ? typed_.left(1) : typed_;
    const QList<QAction*> entries = menu_.actions();
    const qsizetype active = entries.indexOf(menu_.activeAction());
    const qsizetype first = isOneLetter || active < 0 ? active + 1 : active;
    for (qsizetype i = 0; i < entries.size(); ++i) {
        QAction* entry = entries[(first + i) % entries.size()];
        if (entry->isEnabled() && !entry->isSeparator() &&
            ShownText(*entry).startsWith(start, Qt::CaseInsensitive))
            return entry;
    }
    return nullptr;
}

}  // namespace lumarin::qt
