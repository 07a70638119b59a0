// Title, artist, album and year of a piece of music, from the first bytes of its file: ID3 version 2, and the
// comments of FLAC and Ogg. Used by the preview.
#pragma once

#include <string>
#include <string_view>

#include "platform/text_encoding.h"

namespace corvane {

// What is there, with dashes between; empty where the head holds none. Each part is bounded; whatever the
// bytes say, nothing beyond `head` is looked at.
std::string media_tags(std::string_view head, text_encoding& encodings);

}  // namespace corvane
