// Feeds arbitrary bytes to the RAR reader.
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "tests/support/archive_probe.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static corvane::archive_probe probe("rar");
    const std::string wrong = probe.read(std::string(reinterpret_cast<const char*>(data), size));
    if (!wrong.empty()) {
        std::fprintf(stderr, "%s\n", wrong.c_str());
        std::abort();
    }
    return 0;
}
