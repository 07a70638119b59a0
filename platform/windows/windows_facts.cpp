#include "platform/windows/windows_facts.h"

#include <windows.h>

#include <winternl.h>

#include <limits>

#include "platform/windows/windows_entries.h"

// Documented for drivers, and exported to programs as well.
extern "C" NTSTATUS NTAPI NtQueryFullAttributesFile(POBJECT_ATTRIBUTES object,
                                                    PFILE_NETWORK_OPEN_INFORMATION told);

namespace corvane {

namespace {

template <class Told>
bool ask(const handle& entry, FILE_INFORMATION_CLASS what, Told& told) {
    IO_STATUS_BLOCK said{};
    return NtQueryInformationFile(entry.get(), &said, &told, sizeof told, what) >= 0;
}

void take_times(file_facts& facts, const LARGE_INTEGER& written, const LARGE_INTEGER& changed) {
    const auto units = static_cast<std::uint64_t>(written.QuadPart);
    facts.date_high = static_cast<std::int32_t>(static_cast<std::uint32_t>(units >> 32));
    facts.date_low = static_cast<std::int32_t>(static_cast<std::uint32_t>(units));
    facts.modified_ns = nanoseconds_of(units);
    if (changed.QuadPart != 0)
        facts.changed_ns = nanoseconds_of(static_cast<std::uint64_t>(changed.QuadPart));
}

}  // namespace

bool tell_facts(const handle& entry, file_facts& facts) {
    // One question for everything asks for the whole name as well, which the system has to put together.
    FILE_STANDARD_INFORMATION size{};
    FILE_INTERNAL_INFORMATION number{};
    FILE_BASIC_INFORMATION basic{};
    if (!ask(entry, FileStandardInformation, size) || !ask(entry, FileInternalInformation, number) ||
        !ask(entry, FileBasicInformation, basic) || !check_regular(entry, basic.FileAttributes))
        return false;
    facts.exists = true;
    facts.length = size.EndOfFile.QuadPart;
    facts.link_count = size.NumberOfLinks;
    facts.identity.index = static_cast<std::uint64_t>(number.IndexNumber.QuadPart);
    take_times(facts, basic.LastWriteTime, basic.ChangeTime);
    return true;
}

bool tell_state(const std::wstring& path, file_facts& facts) {
    constexpr std::size_t longest = std::numeric_limits<USHORT>::max() / sizeof(wchar_t);
    if (path.size() < 4 || path.size() > longest) return false;
    // "\\?\" of the calls for programs is "\??\" of the system's own.
    std::wstring name = path;
    name[1] = L'?';
    const auto bytes = static_cast<USHORT>(name.size() * sizeof(wchar_t));
    UNICODE_STRING text{bytes, bytes, name.data()};
    OBJECT_ATTRIBUTES object;
    InitializeObjectAttributes(&object, &text, OBJ_CASE_INSENSITIVE, nullptr, nullptr);
    FILE_NETWORK_OPEN_INFORMATION told{};
    if (NtQueryFullAttributesFile(&object, &told) < 0 || has_attribute(told.FileAttributes, not_plain))
        return false;
    facts.exists = true;
    facts.length = told.EndOfFile.QuadPart;
    take_times(facts, told.LastWriteTime, told.ChangeTime);
    return true;
}

}  // namespace corvane
