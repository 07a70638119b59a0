// What is made of the table of options: the text of --help, the manual page, and completions for bash and
// zsh. The last three are written to files when the program is built.
#pragma once

#include <string>

namespace corvane {

std::string help_text();
// For man(7).
std::string manual_page();
std::string bash_completion();
std::string zsh_completion();

}  // namespace corvane
