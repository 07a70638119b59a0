// The task "查相同文件": list in, pairs and result files out.
#pragma once

namespace corvane {

class Tavrel;

// Title of the box that tells what was found.
constexpr char comparison_closing_title[] = "检查同内容文件完毕";

void Picture3_Click(Tavrel& form);

// The cancel button: the running task ends at its next look.
void Command28_Click(Tavrel& form);

// Orders the columns by length and name.
void Command18_Click(Tavrel& form);

}  // namespace corvane
