#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace lumarin {

/// First number of errors that an object raises itself (as a signed 32-bit status).
inline constexpr std::int32_t ObjectErrorBase = static_cast<std::int32_t>(0x80040000);

/// Number of the component's own application errors.
inline constexpr std::int32_t ApplicationErrorNumber = ObjectErrorBase + 1;

/// Any failure that carries what (description), where (source) and which (number).
/// `what()` is the description, in words that can stand in a message box.
class Error : public std::runtime_error {
public:
    Error(std::int32_t number, std::string source, const std::string& description)
        : std::runtime_error(description), number_(number), source_(std::move(source)) {}

    std::int32_t Number() const { return number_; }
    const std::string& Source() const { return source_; }
    std::string Description() const { return what(); }

private:
    std::int32_t number_;
    std::string source_;
};

/// A failure inside one of the component's commands; the source is "window-command".
class ApplicationError : public Error {
public:
    ApplicationError(std::string source, const std::string& description)
        : Error(ApplicationErrorNumber, std::move(source), description) {}
};

/// An index outside a fixed array. `what` says in words what the index is of.
class IndexError : public Error {
public:
    IndexError(std::string source, long long index, const std::string& what = {});
};

/// A file operation that failed: the description names the operation, the file and the platform's reason.
class FileError : public Error {
public:
    FileError(const std::string& operation, const std::string& path, const std::string& reason);
};

}  // namespace lumarin
