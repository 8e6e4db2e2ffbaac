#include "host/drive/Commands.h"

#include <map>

#include "host/drive/DriveError.h"

namespace host {

namespace {

constexpr int Any = -1;

struct Command {
    Step (*make)(const QStringList&);
    int fewest;
    int most;
    const char* usage;
};

const std::map<QString, Command>& Table() {
    using namespace commands;
    static const std::map<QString, Command> table = {
        {"wait", {Wait, 1, 2, "wait WINDOW [MS]"}},
        {"set", {Set, 2, 2, "set W.CONTROL TEXT"}},
        {"key", {Key, 2, 2, "key W.CONTROL KEY"}},
        {"press", {Press, 1, 1, "press W.CONTROL"}},
        {"tool", {Tool, 1, 1, "tool W.NAME"}},
        {"select", {Select, 2, Any, "select W.LIST ROW..."}},
        {"double", {Double, 2, 2, "double W.LIST ROW"}},
        {"menu", {Menu, 1, 1, "menu W.CONTROL"}},
        {"drag", {Drag, 5, 5, "drag W.CONTROL X1 Y1 X2 Y2"}},
        {"reorder", {Reorder, 3, 3, "reorder W.LIST ROW BEFORE"}},
        {"drop", {Drop, 2, Any, "drop W.CONTROL PATH..."}},
        {"get", {Get, 1, 1, "get W, get W.CONTROL or get W.TOOL"}},
        {"windows", {Windows, 0, 0, "windows"}},
        {"unnamed", {Unnamed, 1, 1, "unnamed W"}},
        {"message", {Message, 0, 0, "message"}},
        {"answer", {Answer, 1, 1, "answer BUTTON"}},
        {"choose", {Choose, 0, Any, "choose PATH..."}},
        {"clipboard", {Clipboard, 1, 1, "clipboard PATH or clipboard clear"}},
        {"browser", {Browser, 0, 0, "browser"}},
        {"shot", {Shot, 2, 2, "shot W FILE.png"}},
        {"close", {Close, 1, 1, "close W"}},
        {"pause", {Pause, 1, 1, "pause MS"}},
    };
    return table;
}

}  // namespace

Step MakeStep(const QStringList& words) {
    const QString name = words.value(0);
    const auto found = Table().find(name);
    if (found == Table().end()) throw DriveError("There is no command \"" + name + "\"");
    const Command& command = found->second;
    const QStringList arguments = words.mid(1);
    if (arguments.size() < command.fewest || (command.most != Any && arguments.size() > command.most))
        throw DriveError(QString("Usage: ") + command.usage);
    return command.make(arguments);
}

int DriveNumber(const QString& text, const QString& what) {
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (!isNumber) throw DriveError("\"" + text + "\" is no " + what);
    return number;
}

}  // namespace host
