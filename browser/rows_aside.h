// Work beside the event loop that looks at the rows of the list and changes none of them.
#pragma once

#include <functional>

namespace corvane {

class Tavrel;

// Runs `work` on another thread while events run. Tasks are locked, so that rows, texts and numbers stay; a
// mark may come or go, which `work` must not look at. A program that closes meanwhile can store the marks:
// the rows stand.
void look_at_rows_aside(Tavrel& form, const std::function<void()>& work);

}  // namespace corvane
