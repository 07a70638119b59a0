#include "reports/stored_pairs.h"

#include "core/text/text_format.h"

namespace corvane {

stored_pair_reader::stored_pair_reader(file_system& files, const std::string& store) : lines_(files, store) {
    std::string_view line;
    for (int heading = 0; heading < 2; ++heading) lines_.next(line);
}

bool stored_pair_reader::next(stored_pair& pair) {
    std::string_view line;
    if (!lines_.next(line)) return false;
    pair.length = parse_number(line);
    if (!lines_.next(line)) return false;
    first_ = line;
    if (!lines_.next(line)) return false;
    pair.first = first_;
    pair.second = line;
    return true;
}

}  // namespace corvane
