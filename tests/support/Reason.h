#pragma once

#include <exception>
#include <string>

#include "base/Error.h"

namespace lumarin::testing {

/// Why `work` was refused, in the words of the error that it throws; "done" when it throws none.
template <class Work>
std::string ReasonOf(Work work) {
    try {
        work();
        return "done";
    } catch (const Error& error) {
        return error.Description();
    } catch (const std::exception& error) {
        return error.what();
    }
}

/// Whether a text says this somewhere.
inline bool Says(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

}  // namespace lumarin::testing
