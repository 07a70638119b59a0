// What a file is, for the eye: its facts and its first bytes read as what they are. Nothing in it is run, and
// only its head is read. Used by a front end, on a thread of its own.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/text_encoding.h"

namespace corvane {

// A document has its bytes as text, as a binary has.
enum class preview_kind { none, directory, text, picture, document, binary };

struct file_preview {
    preview_kind kind = preview_kind::none;
    file_facts facts;
    file_access access;
    std::string text;     // the lines of a text, of a binary its bytes in figures
    std::string heading;  // what it is, one line of the program's words
    std::string tags;     // of music, as its file says
    std::string note;     // what does not hold, one line of the program's words; empty for nothing
    const char* picture_format = "";  // of a picture or a document ("pdf"), by its first bytes
    std::vector<std::byte> picture;   // the whole file of these
};

// The kind of picture that begins so, as decoders call it; empty for none.
const char* picture_format(std::string_view head);

// Reads at most the head, and of a picture up to `largest_picture` bytes. A member of an archive is told and
// not unpacked. `given_up` is asked between two reads; true ends the reading, whatever is returned then.
inline constexpr std::int64_t largest_picture = 64 << 20;
file_preview read_preview(file_system& files, text_encoding& encodings, const std::string& path,
                          const std::function<bool()>& given_up);

}  // namespace corvane
