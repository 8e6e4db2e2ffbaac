#include "host/desktop/ProgramOptions.h"

#include <charconv>
#include <functional>
#include <map>

#include "base/Error.h"
#include "base/FileSystem.h"
#include "base/Files.h"
#include "platform/system/UserSession.h"

namespace host {

namespace {

int Level(const std::string& text) {
    int level = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, level);
    if (error != std::errc() || stop != end || level < 0)
        throw OptionError("--level needs a whole number of 0 or more, not \"" + text + "\"");
    return level;
}

FaultScript Faults(const std::string& text) {
    try {
        return FaultScript::Parse(text);
    } catch (const lumarin::Error& error) {
        throw OptionError(std::string("--faults: ") + error.what());
    }
}

void CheckTogether(const ProgramOptions& options) {
    if (!options.demo) return;
    if (!options.drive.empty()) throw OptionError("--demo and --drive exclude each other");
    if (!options.dataFolder.empty())
        throw OptionError("--demo uses a data folder of its own; leave out --data");
}

}  // namespace

ProgramOptions ParseOptions(const std::vector<std::string>& arguments) {
    ProgramOptions options;
    const std::map<std::string, bool*> switches = {
        {"--help", &options.help},       {"-h", &options.help},
        {"--photos", &options.photos},   {"--documents", &options.documents},
        {"--offline", &options.offline}, {"--no-internet", &options.noInternet},
        {"--demo", &options.demo}};
    const std::map<std::string, std::function<void(const std::string&)>> values = {
        {"--data", [&](const std::string& text) { options.dataFolder = text; }},
        {"--demo-folder", [&](const std::string& text) { options.demoFolder = text; }},
        {"--drive", [&](const std::string& text) { options.drive = text; }},
        {"--level", [&](const std::string& text) { options.level = Level(text); }},
        {"--faults", [&](const std::string& text) { options.faults = Faults(text); }},
        {"--agent", [&](const std::string& text) { options.agent = text; }},
        {"--office", [&](const std::string& text) { options.office = text; }},
        {"--board", [&](const std::string& text) { options.board = text; }},
    };

    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const std::string& argument = arguments[at];
        if (const auto found = switches.find(argument); found != switches.end()) {
            *found->second = true;
            continue;
        }
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        const auto found = values.find(name);
        if (found == values.end()) throw OptionError("Unknown option \"" + argument + "\"");
        const bool isNext = equals == std::string::npos;
        if (isNext && at + 1 == arguments.size()) throw OptionError(name + " needs a value");
        const std::string value = isNext ? arguments[++at] : argument.substr(equals + 1);
        if (value.empty() || (isNext && value.starts_with("--"))) throw OptionError(name + " needs a value");
        found->second(value);
    }
    CheckTogether(options);
    return options;
}

std::string OptionHelp() {
    return R"(Starts the reference host: a small listing program in which the photo window and the
document manager run.

  --photos           open the photo window at once
  --documents        open the document manager at once
  --data FOLDER      where the host keeps everything (default: lumarin-host in your data folder)
  --level N          who is signed in: the user's level (default 10; below 60 agent, 60 to 89
                     office, 90 to 99 board, 100 and over unrestricted)
  --agent ID         the agent (default A101)
  --office ID        the office (default OF1)
  --board ID         the board (default 1)
  --offline          the user works offline
  --no-internet      there is no connection
  --faults SCRIPT    what goes wrong with the services, such as "chunk 3 lose; query 2+ fail": a call
                     (query, begin, chunk, end, abort, apply, command, fetch, or any), which one
                     of its kind ("+": that one and all later ones), and what happens to it:
                     fail (the server is not reached), stall (no answer for some seconds) or
                     lose (the server does it, but its answer is lost)
  --demo             the guided demo, without a display, on a data folder of its own
  --demo-folder DIR  where the demo keeps its data and screenshots (default build/demo)
  --drive FILE       do the commands in FILE, one a line, and print one line of JSON for each;
                     "-" reads them from standard input
  --help             this text

The exit code is 0 when everything went well, 1 when a command or the demo failed, 2 for a
command line that cannot be understood, and 3 when the data folder is in use.
)";
}

std::string AbsolutePath(const std::string& path) {
    std::string whole = lumarin::files::Absolute(path);
    if (whole.size() > 1 && whole.ends_with(lumarin::files::Separator)) whole.pop_back();
    return whole;
}

std::string UsualDataFolder() {
    const std::string folder = lumarin::platform::UserDataFolder();
    if (folder.empty())
        throw OptionError("There is no home folder; say with --data where to keep everything");
    return folder + lumarin::files::Separator + "lumarin-host";
}

}  // namespace host
