#include "platform/big_blocks.h"

namespace corvane {

// The heap of Windows returns each block above half a megabyte by itself.
void return_big_blocks() {}

}  // namespace corvane
