// What windows and lists looked like when the program ended: "name=value" lines in a file of their own. A
// slice of the run state; start-up reads it, the end of the program writes it. A new thing to remember is a
// new name.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace corvane {

class remembered_values {
  public:
    // Empty for a name that is not known.
    std::string value(const std::string& name) const;
    // A value holds no line break.
    void set(const std::string& name, std::string value);

    // A file that is missing or of another version gives nothing; lines that are none are passed over.
    void read(file_system& files, const std::string& path);
    // Writes the file if something has changed. One of another version is left as it is.
    outcome write(file_system& files, const std::string& path);

  private:
    std::map<std::string, std::string> values_;
    bool changed_ = false;
    bool is_foreign_ = false;  // the file is another version's
};

// The whole number, when the text is one between least and most; otherwise `otherwise`.
int remembered_number(std::string_view text, int least, int most, int otherwise);

}  // namespace corvane
