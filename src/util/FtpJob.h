#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "util/FtpTransfer.h"

/// The texts in which a host says what goes where. Each function throws ApplicationError, in words for the
/// user, for a part that is missing or that could change the shape of a command: one with line breaks or
/// other control characters, or a name with double quotes.
namespace lumarin::ftp {

/// "host", or "host|user|password"; the host may have ":" and a port. Without both further parts, or with an
/// empty user, the user and the password are "Anonymous". The password is all that follows the second "|".
FtpServer ParseServer(std::string_view description);

/// The full paths of a list, separated by the NUL character, as names of a file dialog are. Empty entries do
/// not count; a list without any other, and two files that would get the same remote name, are refused.
std::vector<std::string> SplitFileList(std::string_view list);

/// The file's name without its folder, behind "folder/" when a remote folder is given. A folder counts from
/// where the server puts the user, one with a "/" before it from the server's root.
std::string RemoteName(std::string_view remoteFolder, std::string_view localPath);

/// The command that sends a file: Send "local path" "remote name".
std::string SendCommand(std::string_view localPath, std::string_view remoteName);

struct Send {
    std::string localPath, remoteName;
};
/// The parts of such a command.
Send ParseSendCommand(std::string_view command);

}  // namespace lumarin::ftp
