// The boxes of the Qt front end, with captions of the program's own. Used by qt_user_interface, whose
// interface says what each asks and answers.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/user_interface.h"

class QWidget;

namespace corvane {

// Each stands before `owner`, which may be null. The help button calls `open_topic` with the number of its
// topic.
box_answer show_message_box(QWidget* owner, const message& shown, const std::function<void(int)>& open_topic);
std::optional<std::string> ask_for_text(QWidget* owner, const std::string& title, const std::string& prompt,
                                        const std::string& initial);
std::optional<std::string> ask_for_file(QWidget* owner, const std::string& title, const std::string& initial);
std::optional<std::string> ask_for_new_file(QWidget* owner, const std::string& title,
                                            const std::string& initial);
std::optional<std::string> ask_for_files(QWidget* owner, const std::string& title, const std::string& filter,
                                         const std::string& directory);
std::optional<int> ask_for_colour(QWidget* owner, const std::string& title, int initial);

}  // namespace corvane
