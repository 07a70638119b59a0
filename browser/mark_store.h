// The marks of the same-file view over a restart: a file beside the store that they belong to. Written when
// the program closes, read with the first view after a start.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

class line_reader;
class line_writer;
class Tavrel;

// Writes the marks of the same-file view as it stands; without marks the file goes. So it does when that view
// has been there in this run and stands no more: its marks went with it. As long as nobody has seen the view
// the file stays.
void store_marks(Tavrel& form);

// Marks the rows that the file speaks of, if the store is still the one that they were set in. A row that
// says something else now takes none. A damaged file is told in one line; what it says whole is taken.
void restore_marks(Tavrel& form);

// The heading of such a file for `count` marks, each of four lines, in the store as it stands now.
void begin_marks(Tavrel& form, line_writer& writer, std::int64_t count);
// Makes way for new marks: a file of another version is put aside. False when it cannot be.
bool make_way_for_marks(Tavrel& form);
// Reads the heading; the marks follow. False when it is that of another store.
bool are_marks_of_store(Tavrel& form, line_reader& marks);

// The lines of the marks of this store, as long as nobody has seen its view in this run; else none. For who
// writes the store anew, which ends them, and then has them kept for the store as it stands by the second.
// False when they cannot be read to their end.
bool read_unseen_marks(Tavrel& form, std::vector<std::string>& lines);
void keep_unseen_marks(Tavrel& form, const std::vector<std::string>& lines);

}  // namespace corvane
