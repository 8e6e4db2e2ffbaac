#include "documents/DocumentCommands.h"

#include <initializer_list>
#include <string_view>

#include "base/Text.h"

namespace lumarin {

namespace {

std::string OneLine(std::string field) {
    for (const char* lineBreak : {"\r\n", "\r", "\n"}) field = text::ReplaceAll(field, lineBreak, " ");
    return field;
}

std::string DescriptionField(const std::string& description) {
    return text::ReplaceAll(OneLine(description), "|", "\u00A6");
}

std::string AddressField(const std::string& address) {
    return text::ReplaceAll(OneLine(address), "|", "%7C");
}

std::string Joined(std::initializer_list<std::string_view> fields) {
    std::string command;
    for (const std::string_view field : fields) {
        if (!command.empty()) command += '|';
        command += field;
    }
    return command;
}

}  // namespace

std::string ServerFileName(const DocumentUser& user, std::int32_t listing, const LocalTime& now) {
    return user.userCode + "_" + user.agentId + std::to_string(listing) + "_" +
           std::to_string(SecondsOfYear(now)) + "Doc.pdf";
}

std::string AddFileCommand(const DocumentUser& user, std::int32_t listing, const std::string& serverFile,
                           const std::string& description) {
    return Joined({"ADD", user.userCode, user.agentId, std::to_string(listing), serverFile,
                   DescriptionField(description)});
}

std::string AddLinkCommand(const DocumentUser& user, std::int32_t listing, const std::string& description,
                           const std::string& address) {
    return Joined({"ADD", user.userCode, user.agentId, std::to_string(listing), "",
                   DescriptionField(description), AddressField(address)});
}

std::string DeleteCommand(const DocumentUser& user, std::int32_t documentId) {
    return Joined({"DELETE", user.userCode, user.agentId, std::to_string(documentId)});
}

}  // namespace lumarin
