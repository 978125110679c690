// What every fuzz target shares: the libFuzzer entry point and a check that
// stops the run with the input that broke it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

#define FUZZ_CHECK(cond)                                                              \
    do {                                                                              \
        if (!(cond)) {                                                                \
            std::fprintf(stderr, "%s:%d: check failed: %s\n", __FILE__, __LINE__, #cond); \
            std::abort();                                                             \
        }                                                                             \
    } while (0)

inline std::string_view FuzzBytes(const uint8_t* data, size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// Whether `head` is where `bytes` starts: a reader ignores what follows a
// complete file, so writing what it read gives the file back up to there.
inline bool StartsWith(std::string_view bytes, std::string_view head) { return bytes.substr(0, head.size()) == head; }
