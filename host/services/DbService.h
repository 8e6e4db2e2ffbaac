#pragma once

#include "entry/Services.h"
#include "host/database/Database.h"

#include <string>

namespace host {

/// The service "DbInterface" over the host's database. The connection outlives it.
class DbService final : public lumarin::DbInterface {
public:
    DbService(Database& queries, std::string connectionName)
        : queries_(queries), connectionName_(std::move(connectionName)) {}

    std::unique_ptr<lumarin::Recordset> Execute(const std::string& connectionName,
                                                const std::string& sql) override;

private:
    Database& queries_;
    std::string connectionName_;
};

/// Throws lumarin::Error unless a service was called for the connection that the host serves.
void RequireConnection(const std::string& asked, const std::string& served);

}  // namespace host
