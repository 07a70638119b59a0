// The check for files of the list that the ordinary file calls cannot handle. Shows them in List1 and changes
// nothing.
#pragma once

namespace corvane {

class Tavrel;

// A file whose length cannot be had gives two rows: its path with the value -1, and the number of characters
// of the path. A path that cannot be found gives one row more and counts as abnormal; so does an archive
// member.
void Command44_Click(Tavrel& form);

}  // namespace corvane
