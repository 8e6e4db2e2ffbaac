#pragma once

#include <map>
#include <memory>
#include <string>

#include "automation/calls/DispatchObject.h"
#include "entry/Services.h"

namespace host {

/// A recordset with the members of the platform's own. `Fields` takes a column's name, or is a collection
/// whose default member does; what is asked for by a column's name is the same object in every row.
class RecordsetObject final : public lumarin::automation::DispatchObject {
public:
    explicit RecordsetObject(std::unique_ptr<lumarin::Recordset> rows);

private:
    using Object = Microsoft::WRL::ComPtr<IDispatch>;

    void AddMoves();
    void AddState();
    Object Field(const std::string& column);

    std::shared_ptr<lumarin::Recordset> rows_;
    std::map<std::string, Object> fields_;
};

}  // namespace host
