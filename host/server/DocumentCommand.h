#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace host {

/// One change to the documents of a listing, as it is written for the service "DocInterface".
struct DocumentCommand {
    enum class Kind { AddFile, AddLink, Delete };

    Kind kind = Kind::AddFile;
    std::string userCode;
    std::string agent;
    std::int32_t listing = 0;   ///< of the two additions
    std::int64_t document = 0;  ///< of a deletion
    std::string upload;         ///< of an added file: the name that it was uploaded under
    std::string description;    ///< of the two additions, without blanks around it
    std::string address;        ///< of an added link, without blanks around it
};

/// Reads a command's fields, which "|" separates. Throws Refusal for anything that is not a command, an empty
/// description, and an address that is not one of the web (see `IsWebAddress`).
DocumentCommand ParseDocumentCommand(std::string_view text);

}  // namespace host
