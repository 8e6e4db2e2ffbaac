#include "host/desktop/DriveClient.h"

#include <functional>
#include <future>
#include <memory>

namespace host {

namespace {

/// Works off a list of commands on the driver's thread, each from the answer of the one before.
class Sequence : public std::enable_shared_from_this<Sequence> {
public:
    Sequence(Driver& driver, QStringList commands) : driver_(driver), commands_(std::move(commands)) {}

    std::future<QJsonValue> LastAnswer() { return answer_.get_future(); }

    void Next() {
        const QString command = commands_.takeFirst();
        driver_.Submit(command, [self = shared_from_this(), command](const QJsonValue& answer) {
            const QString error = answer.toObject().value("error").toString();
            if (!error.isEmpty())
                self->answer_.set_exception(std::make_exception_ptr(DemoFailure(command + ": " + error)));
            else if (self->commands_.isEmpty())
                self->answer_.set_value(answer);
            else
                self->Next();
        });
    }

private:
    Driver& driver_;
    QStringList commands_;
    std::promise<QJsonValue> answer_;
};

}  // namespace

QJsonValue DriveClient::Do(const QString& command) { return DoAll({command}); }

QJsonValue DriveClient::DoAll(const QStringList& commands) {
    const auto sequence = std::make_shared<Sequence>(driver_, commands);
    std::future<QJsonValue> answer = sequence->LastAnswer();
    QMetaObject::invokeMethod(
        &driver_, [sequence] { sequence->Next(); }, Qt::QueuedConnection);
    return answer.get();
}

void DriveClient::OnUserInterface(const std::function<void()>& work) {
    QMetaObject::invokeMethod(&driver_, work, Qt::BlockingQueuedConnection);
}

}  // namespace host
