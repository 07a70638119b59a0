// Writes the manual page and the completions below a folder, each where an installation has it. Run by the
// build.
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "console/option_texts.h"

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("usage: corvane_option_texts FOLDER\n", stderr);
        return 2;
    }
    const std::filesystem::path top = arguments[1];
    struct output {
        const char* path;
        std::string text;
    };
    const output outputs[] = {
        {"man/man1/corvane-console.1", corvane::manual_page()},
        {"bash-completion/completions/corvane-console", corvane::bash_completion()},
        {"zsh/site-functions/_corvane-console", corvane::zsh_completion()},
    };
    for (const output& each : outputs) {
        const std::filesystem::path place = top / each.path;
        std::error_code error;
        std::filesystem::create_directories(place.parent_path(), error);
        std::ofstream file(place, std::ios::binary);
        file << each.text;
        file.close();
        if (file) continue;
        std::fprintf(stderr, "%s cannot be written\n", place.string().c_str());
        return 1;
    }
    return 0;
}
