// How the program's data files are written on this Windows.
#pragma once

#include "platform/file_system.h"

namespace corvane {

// GB 18030 where the system's code page is 936, nothing where it is UTF-8, else the system's code page: what
// that cannot say becomes "?", which stands in no name. Lives as long as the process.
const data_encoding* own_data_encoding();

}  // namespace corvane
