#include "host/services/DbService.h"

#include "base/Error.h"
#include "host/database/SqliteRecordset.h"

namespace host {

std::unique_ptr<lumarin::Recordset> DbService::Execute(const std::string& connectionName,
                                                       const std::string& sql) {
    RequireConnection(connectionName, connectionName_);
    return Query(queries_, sql);
}

void RequireConnection(const std::string& asked, const std::string& served) {
    constexpr std::int32_t UnknownConnection = lumarin::ObjectErrorBase + 404;
    if (asked != served)
        throw lumarin::Error(UnknownConnection, "host", "There is no connection \"" + asked + "\"");
}

}  // namespace host
