#pragma once

#include <QJsonValue>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <optional>

#include "host/drive/BrowserRecord.h"
#include "host/drive/Step.h"

class QWidget;

namespace host {

/// Works the program's windows as a person would, one command at a time. An action runs as an event of its
/// own, so that a modal window that it opens does not hold up the driver: the action is answered when its
/// handler has returned, when something waits for the user, or when a new window has appeared, whichever
/// is first. While it lives, the program's web addresses and documents are not opened but written down.
/// User-interface thread only; made after the application object.
class Driver : public QObject {
public:
    using Answered = std::function<void(const QJsonValue&)>;

    Driver();

    /// Does one command line and hands over its answer, {"error":...} when it cannot be done; never before
    /// this returns. The next command may be submitted from within `answered` or later.
    void Submit(const QString& line, Answered answered);

    /// Whether any command was answered with an error.
    bool HadErrors() const { return hadErrors_; }

    /// Dismisses what waits for the user until no handler is at work, then calls `end`.
    void Quit(std::function<void()> end);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    struct Pending {
        Step step;
        Answered answered;
        quint64 number = 0;
        bool acting = false;
        bool returned = false;
        QString error;
        QPointer<QWidget> waitingBefore;  ///< what waited for the user when the action began
        bool windowAppeared = false;
    };

    void CheckSoon();
    void Check();
    bool MayBegin() const;
    bool IsUserAwaited() const;
    void Begin();
    void BeginLate();
    void Act(quint64 number);
    bool IsAnswerable() const;
    void AnswerAction();
    void Answer(const QJsonValue& answer);
    void AnswerError(const QString& reason);
    void GoOnQuitting();

    std::optional<Pending> pending_;
    QTimer patience_;
    bool checkPosted_ = false;
    bool hadErrors_ = false;
    quint64 lastNumber_ = 0;
    int handlersAtWork_ = 0;
    BrowserRecord browser_;
    QList<QPointer<QWidget>> appeared_;  ///< windows shown while handlers are at work
    std::function<void()> end_;
    QPointer<QWidget> closed_;  ///< the modal window that was last asked to close, to end the program
    bool askedWhileQuitting_ = false;
};

}  // namespace host
