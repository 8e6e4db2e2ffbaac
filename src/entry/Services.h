#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "entry/FieldValue.h"

namespace lumarin {

/// Anything that the host's service broker hands out. A service object is asked for afresh for each
/// operation and released when the operation ends.
class HostService {
public:
    virtual ~HostService() = default;
};

/// Rows of a query, read forward from the first. Owned by the caller of `Execute`, and valid as long as
/// it is kept, even after the service object is gone. Column names are not case-sensitive. Every operation
/// may throw Error with the database's reason; an open recordset is closed also after that, and may then fail
/// once more. The component reads recordsets through QueryRows only, which sees to both.
class Recordset {
public:
    virtual ~Recordset() = default;

    /// True when there is no current row because the last one was passed (or there are none).
    virtual bool Eof() const = 0;
    virtual bool Bof() const = 0;
    /// True until `Close`.
    virtual bool IsOpen() const = 0;
    virtual void MoveFirst() = 0;
    virtual void MoveNext() = 0;
    virtual int RecordCount() const = 0;
    /// Moves forward from the current row to the first row for which the criterion ("Column = number")
    /// holds; to the end when there is none. Throws Error for another form of criterion.
    virtual void Find(const std::string& criterion) = 0;
    /// The column's value in the current row. Throws Error for an unknown column or without a row.
    virtual FieldValue Field(std::string_view column) const = 0;
    /// The same value as a text, into one that is there: in thousands of rows most find room in it.
    virtual void ReadText(std::string_view column, std::string& text) const { text = Field(column).Text(); }
    virtual void Close() = 0;
};

/// The service "DbInterface".
class DbInterface : public HostService {
public:
    static constexpr const char* ServiceName = "DbInterface";

    /// Runs one SELECT statement. An empty result is a recordset that is at its end at once; a failure
    /// throws Error with the database's reason.
    virtual std::unique_ptr<Recordset> Execute(const std::string& connectionName, const std::string& sql) = 0;
};

/// Modes of `PhotoInterface::UploadPhotoFile`, with the system's numbers.
enum class UploadMode { Begin = 1, End = 2, Abort = 3 };

/// What `BatchUpdate` is to apply.
enum class BatchKind { PhotoPackage = 2 };

/// The service "PhotoInterface": one file at a time goes to the server. Call order: Begin with the
/// file's name, its bytes in chunks, End; Abort with "" drops what was sent, even after End. A failure
/// to reach the server throws Error. It leaves open whether the server did the step and only its answer was
/// lost: Abort follows then, and drops nothing where this object has nothing at the server.
class PhotoInterface : public HostService {
public:
    static constexpr const char* ServiceName = "PhotoInterface";

    virtual void UploadPhotoFile(const std::string& name, UploadMode mode) = 0;
    virtual void UploadPhotoFile(std::span<const std::byte> chunk) = 0;
    /// Asks the server to apply an uploaded package. 0 is success; any other number a refusal, with
    /// nothing changed on the server.
    virtual int BatchUpdate(const std::string& connectionName, const std::string& packageName,
                            BatchKind kind) = 0;
};

/// The service "DocInterface": the records of listing documents. One object may be kept and used for many
/// changes.
class DocInterface : public HostService {
public:
    static constexpr const char* ServiceName = "DocInterface";

    /// Makes one change, written as fields with "|" between them (see docs/formats.md). True when the
    /// server refused it, with the reason in `ErrorText` and nothing changed. Throws Error when the server
    /// cannot be reached.
    virtual bool Update(std::string& Command, std::string& ErrorText) = 0;
};

/// The host's named services.
class ServiceBroker {
public:
    virtual ~ServiceBroker() = default;
    /// A new object for this name; throws Error for a name that it does not know.
    virtual std::unique_ptr<HostService> GetClassInstance(const std::string& name) = 0;
};

}  // namespace lumarin
