#pragma once

#include <cstdint>
#include <string>

#include "base/Clock.h"

namespace lumarin {

/// Who changes documents: the first fields of every command.
struct DocumentUser {
    std::string userCode;
    std::string agentId;
};

/// Name under which a PDF file goes to the server. Agent and listing number stand side by side.
std::string ServerFileName(const DocumentUser& user, std::int32_t listing, const LocalTime& now);

/// The commands of DocInterface. "|" ends a field, so one in a description becomes a broken bar, one in an
/// address %7C; line breaks become blanks.
std::string AddFileCommand(const DocumentUser& user, std::int32_t listing, const std::string& serverFile,
                           const std::string& description);
std::string AddLinkCommand(const DocumentUser& user, std::int32_t listing, const std::string& description,
                           const std::string& address);
std::string DeleteCommand(const DocumentUser& user, std::int32_t documentId);

}  // namespace lumarin
