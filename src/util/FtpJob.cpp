#include "util/FtpJob.h"

#include <algorithm>
#include <set>

#include "base/Error.h"
#include "base/Text.h"

namespace lumarin::ftp {

namespace {

constexpr char PartSeparator = '|';
constexpr char FileSeparator = '\0';
constexpr const char* Anonymous = "Anonymous";
constexpr const char* Protocol = "ftp://";

[[noreturn]] void Refuse(const std::string& text) { throw ApplicationError("frmFTP-Send", text); }

/// Names stand between double quotes in a command; user and password stand in none.
enum class Quotes { Harmless, Harmful };

/// A control character, or a quote in a name, could end the text early and begin another command.
void CheckText(const std::string& what, std::string_view text, Quotes quotes) {
    const bool isHarmless = std::all_of(text.begin(), text.end(), [quotes](char c) {
        const auto code = static_cast<unsigned char>(c);
        return code >= ' ' && code != 0x7F && (c != '"' || quotes == Quotes::Harmless);
    });
    if (!isHarmless)
        Refuse(what + " must not contain " + (quotes == Quotes::Harmful ? "quotes, " : "") +
               "line breaks or other control characters. Nothing was sent.");
}

/// Whatever else may stand in an address would make another host, a user or a path of it.
bool IsHostCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           static_cast<unsigned char>(c) >= 0x80 || std::string_view(".-_:[]").find(c) != std::string::npos;
}

void CheckNames(std::string_view localPath, std::string_view remoteName) {
    CheckText("The name of a file to send", localPath, Quotes::Harmful);
    CheckText("The remote folder", remoteName, Quotes::Harmful);
    if (localPath.empty() || remoteName.empty() || remoteName.back() == '/')
        Refuse("The name of a file to send is missing.");
}

}  // namespace

FtpServer ParseServer(std::string_view description) {
    const std::size_t hostEnd = std::min(description.find(PartSeparator), description.size());
    const std::string_view host = text::Trim(description.substr(0, hostEnd));
    if (host.empty()) Refuse("The name of the FTP server is missing.");
    if (!std::all_of(host.begin(), host.end(), IsHostCharacter))
        Refuse("\"" + std::string(host) + "\" is not the name of an FTP server.");

    FtpServer server{.address = Protocol + std::string(host), .user = Anonymous, .password = Anonymous};
    const std::string_view rest = description.substr(std::min(hostEnd + 1, description.size()));
    const std::size_t userEnd = rest.find(PartSeparator);
    if (userEnd == std::string_view::npos || userEnd == 0) {
        CheckText("The user name for the FTP server", rest, Quotes::Harmless);
        return server;
    }
    server.user = rest.substr(0, userEnd);
    server.password = rest.substr(userEnd + 1);
    CheckText("The user name for the FTP server", server.user, Quotes::Harmless);
    CheckText("The password for the FTP server", server.password, Quotes::Harmless);
    return server;
}

std::vector<std::string> SplitFileList(std::string_view list) {
    std::vector<std::string> paths = text::Split(list, FileSeparator);
    std::erase(paths, "");
    if (paths.empty()) Refuse("There is no file to send.");
    std::set<std::string> names;
    for (const std::string& path : paths) {
        const std::string name = RemoteName("", path);
        if (!names.insert(name).second)
            Refuse("Two of the files to send have the name \"" + name +
                   "\"; on the server one would replace the other. Nothing was sent.");
    }
    return paths;
}

std::string RemoteName(std::string_view remoteFolder, std::string_view localPath) {
    const std::string name = text::AfterLastSeparator(localPath);
    std::string remoteName = remoteFolder.empty() ? name : std::string(remoteFolder) + "/" + name;
    CheckNames(localPath, remoteName);
    return remoteName;
}

std::string SendCommand(std::string_view localPath, std::string_view remoteName) {
    CheckNames(localPath, remoteName);
    return "Send \"" + std::string(localPath) + "\" \"" + std::string(remoteName) + "\"";
}

Send ParseSendCommand(std::string_view command) {
    const std::vector<std::string> parts = text::Split(command, '"');
    if (parts.size() != 5 || parts[0] != "Send " || parts[2] != " " || !parts[4].empty())
        Refuse("The transfer does not know the command " + std::string(command));
    CheckNames(parts[1], parts[3]);
    return {parts[1], parts[3]};
}

}  // namespace lumarin::ftp
