#pragma once

#include "entry/Services.h"
#include "host/server/Server.h"

#include <string>

namespace host {

/// The service "DocInterface" over the listing server, which outlives it.
class DocService final : public lumarin::DocInterface {
public:
    DocService(Server& server, DocumentSender sender) : server_(server), sender_(std::move(sender)) {}

    bool Update(std::string& Command, std::string& ErrorText) override;

private:
    Server& server_;
    DocumentSender sender_;
};

}  // namespace host
