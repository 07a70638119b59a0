// How the doubles note that a topic of the help was opened.
#pragma once

#include <string>

namespace corvane {

inline std::string help_call(int topic) {
    return std::string("help aux") + (topic < 10 ? "0" : "") + std::to_string(topic) +
           "_Corvane帮助_Link.htm";
}

}  // namespace corvane
