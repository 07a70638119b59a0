// The deletion of the empty directories that are marked in the view: always through the recycle bin.
#pragma once

namespace corvane {

class Tavrel;

// The task of Picture8. Red rows go, and blue ones while force_protected is set. Whatever is no directory of
// its own any more, a link included, stays.
void Picture8_Click(Tavrel& form);
// The menu entry: the same while the view shows empty directories, else nothing.
void del_dir_Click(Tavrel& form);

}  // namespace corvane
