// The error trail, the avoid list and the run records.
#pragma once

#include <cstdint>
#include <string_view>

namespace corvane {

class Tavrel;

// "追错": turns the trail on or off for the next comparison.
void debug_err_Click(Tavrel& form);
// "追错分析": shows the file that err_rec.txt names, if there is such a record.
void debug_err_anly_Click(Tavrel& form);
// "打开目录": shows that file in the file manager.
void Command46_Click(Tavrel& form);
// "确定": puts the file on the avoid list if the box is checked, and closes the frame.
void Command47_Click(Tavrel& form);

// Reads avoid.txt into avoid_files; a missing file leaves the list as it is.
void read_avoid_list(Tavrel& form);

// While the trail is on, names the file in err_rec.txt before it is touched.
void note_in_trail(Tavrel& form, std::string_view path);

// Reads run_time_rem.txt and sets run_rate, the mean seconds per unit weighted by size.
void read_run_records(Tavrel& form);
// Keeps the 49 latest records of the file and adds this one if it took at least a second.
void write_run_record(Tavrel& form, std::int32_t size, std::int32_t seconds);

}  // namespace corvane
