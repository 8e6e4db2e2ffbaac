#include "entry/QueryRows.h"

namespace lumarin {

QueryRows::QueryRows(VelCommon& host, const std::string& sql) {
    AtDatabase([&] {
        rows_.reset(RequestService<DbInterface>(host)->Execute(host.ConnectionName(), sql).release());
        if (rows_ == nullptr) throw Error(ApplicationErrorNumber, "database", "The host gave no recordset");
    });
}

void QueryRows::Ended::operator()(Recordset* rows) const noexcept {
    bool open = true;
    try {
        open = rows->IsOpen();
    } catch (...) {  // then it is closed all the same
    }
    try {
        if (open) rows->Close();
    } catch (...) {  // its rows were read or given up: nobody needs it any more
    }
    delete rows;
}

}  // namespace lumarin
