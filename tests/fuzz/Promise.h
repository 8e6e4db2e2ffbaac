#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

/// Ends the program, so that the fuzzer keeps the input, when something that must hold does not.
#define PROMISE(condition)                                                               \
    do {                                                                                 \
        if (!(condition)) {                                                              \
            std::fprintf(stderr, "%s:%d: broken: %s\n", __FILE__, __LINE__, #condition); \
            std::abort();                                                                \
        }                                                                                \
    } while (false)

/// Begins the function that is called with each input: `FUZZ(std::string_view bytes) { ... }`.
#define FUZZ(parameter)                                                                 \
    static void Check(parameter);                                                       \
    extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) { \
        Check({reinterpret_cast<const char*>(data), size});                             \
        return 0;                                                                       \
    }                                                                                   \
    static void Check(parameter)
