#include "host/server/DocumentCommand.h"

#include "fuzz/Promise.h"
#include "host/server/Refusal.h"

#include <cstdint>
#include <string_view>

/// Whatever comes is a refusal or a command that can be carried out without looking at its text again.
FUZZ(std::string_view line) {
    try {
        const host::DocumentCommand command = host::ParseDocumentCommand(line);
        const bool deletes = command.kind == host::DocumentCommand::Kind::Delete;
        const bool links = command.kind == host::DocumentCommand::Kind::AddLink;
        PROMISE(deletes ? command.document > 0 : command.listing > 0 && !command.description.empty());
        PROMISE(links == !command.address.empty());
        PROMISE(deletes || links == command.upload.empty());
        PROMISE((command.userCode + command.agent + command.upload + command.description + command.address)
                    .find_first_of("|\r\n") == std::string::npos);
    } catch (const host::Refusal&) {
        // Nothing else may be thrown.
    }
}
