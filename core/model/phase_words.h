// The words by which the panels and the cancel button say which phase of a run is in work. Shared by those
// who show them and those who tell the phase by them.
#pragma once

namespace corvane::phase_words {

inline constexpr char searching[] = "文件搜索";                 // panel 7
inline constexpr char checking[] = "查相同文件_核对属性";       // panel 7
inline constexpr char cancel_comparing[] = "取消[查相同文件]";  // the cancel button

}  // namespace corvane::phase_words
