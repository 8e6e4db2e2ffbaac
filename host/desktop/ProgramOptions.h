#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "host/services/Faults.h"

namespace host {

/// A command line that cannot be understood; the text says what is wrong.
class OptionError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What the program was asked to do.
struct ProgramOptions {
    bool help = false;
    bool photos = false;     ///< open the photo window at once
    bool documents = false;  ///< open the document manager at once
    bool demo = false;
    bool offline = false;     ///< as if the user worked offline
    bool noInternet = false;  ///< as if there were no connection
    FaultScript faults;       ///< what goes wrong with the host's services
    std::string drive;        ///< file with commands, "-" for standard input; "" for none
    std::string dataFolder;   ///< "" is the usual one
    std::string demoFolder = "build/demo";
    int level = 10;
    std::string agent = "A101";
    std::string office = "OF1";
    std::string board = "1";
};

/// Reads the arguments after the program's name; a value may follow its option as the next argument or
/// after "=". Throws OptionError for unknown options, missing or impossible values and options that
/// exclude each other.
ProgramOptions ParseOptions(const std::vector<std::string>& arguments);

/// The help text.
std::string OptionHelp();

/// The whole of a path that a person gave, without a separator at its end.
std::string AbsolutePath(const std::string& path);

/// Where the host keeps everything when nobody says otherwise: in the user's data folder. Throws
/// OptionError when the system names none.
std::string UsualDataFolder();

}  // namespace host
