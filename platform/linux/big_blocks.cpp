#include "platform/big_blocks.h"

#include <malloc.h>

namespace corvane {

void return_big_blocks() {
    constexpr int own_mapping = 256 * 1024;  // bytes
    mallopt(M_MMAP_THRESHOLD, own_mapping);
}

}  // namespace corvane
