// The first start in a folder of the user's own: the lists that ship come into it, and files of an earlier
// place are offered. Used by the program's start, once it has claimed the folder.
#pragma once

#include "app/program_place.h"
#include "core/model/main_form.h"

namespace corvane {

// True in a folder of the user's own that holds no settings yet.
bool is_first_start(Tavrel& form, const program_place& place);

// Puts the lists that ship into the folder, where none stands. A failure leaves a list out; the program says
// so where it reads it.
void seed_lists(Tavrel& form, const program_place& place);

// Asks whether the files of an earlier place are to be copied into the folder: all that the user would miss,
// each as it stands, none over one that is here, and the earlier place is left as it is. Asks once: an answer
// is kept with the settings; a dismissed box is none, and neither is one that could not be carried out: says
// so when a file cannot be copied, stops, and asks again at the next start.
void offer_earlier_files(Tavrel& form, const program_place& place);
// For where nobody can answer: says that there are such files, as long as the folder holds no settings.
void tell_of_earlier_files(Tavrel& form, const program_place& place);

}  // namespace corvane
