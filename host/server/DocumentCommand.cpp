#include "host/server/DocumentCommand.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "base/Numbers.h"
#include "base/Text.h"
#include "host/server/Refusal.h"
#include "host/server/WebAddress.h"

namespace host {

namespace {

namespace text = lumarin::text;
using Fields = std::vector<std::string>;

constexpr std::size_t LongestCommand = 4'000;  // bytes

bool HoldsControls(std::string_view line) {
    return std::any_of(line.begin(), line.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
}

std::int32_t Listing(const std::string& field) {
    const auto number = lumarin::ParseListingNumber(field);
    if (!number) throw Refusal("\"" + field + "\" is no listing number");
    return *number;
}

std::int64_t Document(const std::string& field) {
    std::int64_t number = 0;
    const char* end = field.data() + field.size();
    const auto [stop, error] = std::from_chars(field.data(), end, number);
    if (error != std::errc() || stop != end || number < 1 || field[0] == '0')
        throw Refusal("\"" + field + "\" is no document id");
    return number;
}

std::string Description(const std::string& field) {
    std::string description(text::Trim(field));
    if (description.empty()) throw Refusal("The document has no description");
    return description;
}

std::string Address(const std::string& field) {
    std::string address(text::Trim(field));
    if (address.empty()) throw Refusal("The link has no address");
    if (!IsWebAddress(address))
        throw Refusal("\"" + address + "\" is not the address of a web page (http or https)");
    return address;
}

DocumentCommand Addition(const Fields& fields) {
    DocumentCommand command;
    command.listing = Listing(fields[3]);
    command.upload = fields[4];
    command.description = Description(fields[5]);
    if (fields.size() == 6) {
        if (command.upload.empty()) throw Refusal("The command names no uploaded file");
        return command;
    }
    command.kind = DocumentCommand::Kind::AddLink;
    if (!command.upload.empty()) throw Refusal("A document is either a file or a link");
    command.address = Address(fields[6]);
    return command;
}

DocumentCommand Deletion(const Fields& fields) {
    DocumentCommand command;
    command.kind = DocumentCommand::Kind::Delete;
    command.document = Document(fields[3]);
    return command;
}

}  // namespace

DocumentCommand ParseDocumentCommand(std::string_view line) {
    if (line.size() > LongestCommand) throw Refusal("The command is too long");
    if (HoldsControls(line)) throw Refusal("The command holds control characters");
    const Fields fields = text::Split(line, '|');
    const bool adds = fields[0] == "ADD" && (fields.size() == 6 || fields.size() == 7);
    const bool deletes = fields[0] == "DELETE" && fields.size() == 4;
    if (!adds && !deletes)
        throw Refusal("The server does not know the command \"" + std::string(line) + "\"");
    DocumentCommand command = adds ? Addition(fields) : Deletion(fields);
    command.userCode = fields[1];
    command.agent = fields[2];
    return command;
}

}  // namespace host
