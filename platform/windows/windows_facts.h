// What Windows tells of one file: from an open handle, or by its path alone. Used by windows_file_system and
// the lists that it takes numbers of files from.
#pragma once

#include <string>

#include "platform/file_system.h"
#include "platform/windows/handle.h"

namespace corvane {

// All but the device of the identity and `stacked`. False for what is no regular file, and where the system
// does not tell; the facts then say nothing. What was written before the call shows in the times, or the
// length is that of a later moment.
bool tell_facts(const handle& entry, file_facts& facts);

// Length and times, without opening the file; its path is one of wide_path. False for what may be no regular
// file, and where the system does not tell: then the file has to be opened.
bool tell_state(const std::wstring& path, file_facts& facts);

}  // namespace corvane
