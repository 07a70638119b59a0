// The error trail, the avoid list and the run records.
#pragma once

#include <cstdint>
#include <string_view>

namespace corvane {

class Tavrel;

// Reads avoid.txt into avoid_files; a missing file leaves the list as it is.
void read_avoid_list(Tavrel& form);

// While the trail is on, names the file in err_rec.txt before it is touched.
void note_in_trail(Tavrel& form, std::string_view path);

// Reads run_time_rem.txt and sets run_rate, the mean seconds per unit weighted by size.
void read_run_records(Tavrel& form);
// Keeps the 49 latest records and adds this one if it took at least a second.
void write_run_record(Tavrel& form, std::int32_t size, std::int32_t seconds);

}  // namespace corvane
