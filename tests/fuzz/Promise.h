#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the program, so that the fuzzer keeps the input, when something that must hold does not.
#define PROMISE(condition)                                                               \
    do {                                                                                 \
        if (!(condition)) {                                                              \
            std::fprintf(stderr, "%s:%d: broken: %s\n", __FILE__, __LINE__, #condition); \
            std::abort();                                                                \
        }                                                                                \
    } while (false)
