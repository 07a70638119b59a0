#include <algorithm>
#include <string_view>

#include "console/option_table.h"

namespace corvane {

namespace {

const option_entry* find_option(std::string_view name) {
    for (const option_entry& entry : option_table())
        if (name == entry.name) return &entry;
    return nullptr;
}

// Each with its dot; empty when one of them is no suffix.
std::vector<std::string> types_of(std::string_view list) {
    std::vector<std::string> types;
    while (true) {
        const std::size_t end = std::min(list.find(','), list.size());
        std::string type(list.substr(0, end));
        if (!type.starts_with('.')) type.insert(0, 1, '.');
        // A blank parts the suffixes in the program, and the last dot of a name begins its own.
        if (type.size() == 1 || type.rfind('.') > 0 || type.find_first_of(" /") != std::string::npos)
            return {};
        types.push_back(std::move(type));
        if (end == list.size()) return types;
        list.remove_prefix(end + 1);
    }
}

std::string wrong_value(const option_entry& option, std::string_view value) {
    return std::string(option.name) + ": not a " +
           (option.value == option_value::types ? "suffix" : "format") + ": '" + std::string(value) + "'";
}

// Empty, or what is wrong with the value.
std::string take_value(const option_entry& option, std::string_view value, command_line& read) {
    if (value.empty()) return std::string(option.name) + " needs a value";
    if (option.value == option_value::types) {
        const std::vector<std::string> types = types_of(value);
        if (types.empty()) return wrong_value(option, value);
        read.types.insert(read.types.end(), types.begin(), types.end());
        return {};
    }
    if (option.value == option_value::format) {
        const auto known = format_table();
        if (std::none_of(known.begin(), known.end(),
                         [value](const format_entry& each) { return value == each.name; }))
            return wrong_value(option, value);
    }
    std::visit(
        [&](auto member) {
            auto& target = read.*member;
            using type = std::remove_cvref_t<decltype(target)>;
            if constexpr (std::is_same_v<type, bool>)
                target = true;
            else if constexpr (std::is_same_v<type, std::vector<std::string>>)
                target.emplace_back(value);
            else
                target = std::string(value);
        },
        option.target);
    return {};
}

// Options that were given but belong to the other form of the command, and forms that lack something.
std::string check_form(const std::vector<const option_entry*>& given, const command_line& read) {
    if (read.script && !read.directories.empty()) return "--script takes no directories";
    if (!read.script && read.directories.empty()) return "no directory to search";
    for (const option_entry* option : given)
        if (read.script && option->form == option_form::directories)
            return std::string(option->name) + " does not go with --script";
    return {};
}

}  // namespace

std::string read_command_line(std::span<const char* const> arguments, command_line& read) {
    std::vector<const option_entry*> given;
    bool only_directories = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        if (argument.empty()) return "a directory has no name";
        if (only_directories || argument[0] != '-') {
            read.directories.emplace_back(argument);
            continue;
        }
        if (argument == "--") {
            only_directories = true;
            continue;
        }
        const std::size_t equals = std::min(argument.find('='), argument.size());
        const option_entry* option = find_option(argument.substr(0, equals));
        if (option == nullptr) return "unknown option " + std::string(argument);
        given.push_back(option);
        const bool has_value = equals < argument.size();
        if (option->value == option_value::none) {
            if (has_value) return std::string(option->name) + " takes no value";
            read.*std::get<bool command_line::*>(option->target) = true;
            if (read.help || read.version) return {};
            continue;
        }
        if (!has_value && i + 1 == arguments.size()) return std::string(option->name) + " needs a value";
        const std::string_view value = has_value ? argument.substr(equals + 1) : arguments[++i];
        if (std::string wrong = take_value(*option, value, read); !wrong.empty()) return wrong;
    }
    return check_form(given, read);
}

}  // namespace corvane
