// The registry of handlers held against everything that speaks of a handler by its name.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>

#include "app/still_to_come.h"
#include "browser/browser_handlers.h"
#include "cleanup/cleanup_handlers.h"
#include "compare/compare_handlers.h"
#include "core/model/main_menu.h"
#include "core/model/task_table.h"
#include "core/tasks/core_handlers.h"
#include "names/name_handlers.h"
#include "reports/page_task.h"
#include "reports/report_handlers.h"
#include "search/options_menu.h"
#include "search/search_handlers.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

bool is_without_effect(std::string_view name) {
    const auto names = names_without_effect();
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool is_known(const Tavrel& form, std::string_view name) {
    return form.has_handler(name) || form.is_expected(name) || is_without_effect(name);
}

TEST(Registry, EveryMenuEntryHasAHandlerOrIsOnAList) {
    test_program p;
    std::set<std::string_view> parents;
    for (const menu_entry& entry : main_menu()) parents.insert(entry.parent);
    for (const menu_entry& entry : main_menu()) {
        if (std::string_view(entry.caption) == "-" || parents.count(entry.name) != 0) continue;
        EXPECT_TRUE(is_known(p.form, entry.name)) << entry.name;
    }
}

TEST(Registry, EveryTaskOfTheTableHasItsProcedurePictureLabelAndEntry) {
    test_program p;
    for (const task_entry& task : task_table()) {
        EXPECT_TRUE(p.form.has_handler(task.handler)) << task.handler;
        EXPECT_NE(p.form.find(task.menu), nullptr) << task.menu;
        EXPECT_TRUE(p.form.has_handler(task.menu)) << task.menu;
        if (*task.picture == '\0') continue;
        EXPECT_NE(p.form.find(task.picture), nullptr) << task.picture;
        EXPECT_TRUE(p.form.has_handler(std::string(task.picture) + "_Click")) << task.picture;
    }
}

TEST(Registry, EveryConstantNamesAHandler) {
    test_program p;
    for (const handler_name& constant : handlers::all)
        EXPECT_TRUE(p.form.has_handler(constant.text) || p.form.is_expected(constant.text)) << constant.text;
}

TEST(Registry, WhatIsStillToComeIsNotThereYet) {
    test_program p;
    for (const char* name : handlers_to_come()) EXPECT_TRUE(p.form.is_expected(name)) << name;
    for (const char* name : names_without_effect()) {
        EXPECT_FALSE(p.form.has_handler(name)) << name;
        EXPECT_FALSE(p.form.is_expected(name)) << name;
    }
}

TEST(Registry, EveryControlThatActsHasAHandler) {
    test_program p;
    std::vector<form_model*> forms = p.form.children();
    forms.push_back(&p.form);
    for (const form_model* window : forms) {
        const std::string prefix = window == &p.form ? "" : window->name() + ".";
        EXPECT_TRUE(window == &p.form || p.form.has_handler(prefix + "Form_Unload")) << prefix;
        for (const auto& each : window->controls()) {
            const std::string name = prefix + each->name();
            if (each->kind() == control_kind::button || each->kind() == control_kind::picture) {
                // The ground that the task pictures stand on.
                if (each->name() == "Picture10") continue;
                EXPECT_TRUE(is_known(p.form, name + "_Click")) << name;
            } else if (each->kind() == control_kind::timer) {
                EXPECT_TRUE(is_known(p.form, name + "_Timer")) << name;
            }
        }
    }
}

TEST(Registry, EveryEntryOfTheOptionMenusHasAHandler) {
    test_program p;
    std::string menu;
    for (const options_menu_entry& entry : options_menus()) {
        const bool is_menu = menu != entry.list;
        menu = entry.list;
        if (is_menu || entry.letter == 0) continue;
        EXPECT_TRUE(p.form.has_handler("Form_no_dire." + std::string(entry.name))) << entry.name;
    }
}

// The names that widgets hand over as they stand in the code: act("...") and act_("...").
TEST(Registry, EveryNameThatAWidgetSpeaksOfHasAHandler) {
    test_program p;
    // A name that ends in a dot is put together with that of a control, which has its own test.
    const std::regex spoken("\\bact_?\\(\"([^\"]*[^\".])\"");
    int found = 0;
    for (const auto& file : std::filesystem::directory_iterator(CORVANE_FORMS_DIR)) {
        if (file.path().extension() != ".cpp") continue;
        std::ifstream stream(file.path());
        const std::string code((std::istreambuf_iterator<char>(stream)), {});
        for (std::sregex_iterator each(code.begin(), code.end(), spoken), end; each != end; ++each) {
            const std::string name = (*each)[1];
            // A child window speaks of its own handlers without its name.
            static const std::map<std::string, std::string> own = {{"options_window.cpp", "Form_no_dire."},
                                                                   {"sleep_window.cpp", "sleep_music."},
                                                                   {"tree_window.cpp", "tree_dir."}};
            const auto prefix = own.find(file.path().filename().string());
            EXPECT_TRUE(is_known(p.form, prefix == own.end() ? name : prefix->second + name)) << name;
            ++found;
        }
    }
    EXPECT_GT(found, 10);
}

TEST(Registry, NoNameIsBoundTwiceByTheTables) {
    // Two tables with one name would hide one of the procedures.
    test_program p;
    std::set<std::string> seen;
    for (const handler_table& table :
         {core_handlers(), search_handlers(), compare_handlers(), browser_handlers(), name_handlers(),
          cleanup_handlers(), report_handlers(), result_page_handlers("1"),
          p.corvane.directory_window().handlers(), p.corvane.options_window().handlers(),
          p.corvane.tree_window().handlers(), p.corvane.sleep_window().handlers(),
          p.corvane.warning_window().handlers(), p.corvane.texts().handlers()})
        for (const handler& each : table)
            EXPECT_TRUE(seen.insert(folded_name(each.name)).second) << each.name;
    EXPECT_GT(seen.size(), 60u);
}

TEST(Registry, AnUnknownNameFailsLoudlyInsideAndSoftlyAtTheEdge) {
    test_program p;
    EXPECT_FALSE(p.form.run("no_such_handler"));
    EXPECT_THROW(p.form.call(handler_name{"no_such_handler"}), std::logic_error);
    EXPECT_THROW(p.form.start(handler_name{"no_such_handler"}), std::logic_error);
    p.form.expect("some later handler");  // still to come: known, without effect
    EXPECT_NO_THROW(p.form.call(handler_name{"some later handler"}));
    EXPECT_FALSE(p.form.run("some later handler"));
}

TEST(Registry, ASecondTaskIsRefusedWhileOneRunsAlsoWithoutAVisibleLock) {
    test_program p;
    p.files.add_file("/d/a");
    p.files.add_file("/prog/文件清单.txt", "/d/a\r\n/d/b\r\n");
    int yields_inside = 0;
    // Reading the stored list shows no lock.
    p.screen.acts[1] = [&] {
        EXPECT_FALSE(p.state.tasks_locked);
        EXPECT_TRUE(p.form.task_runs());
        const std::int64_t before = p.screen.yields;
        EXPECT_TRUE(p.form.run("Picture3_Click"));
        EXPECT_TRUE(p.form.run("Picture6_Click"));
        yields_inside = static_cast<int>(p.screen.yields - before);
    };
    p.form.run("Command21_Click");
    EXPECT_EQ(yields_inside, 0);
    EXPECT_EQ(p.state.file_count, 2);
    EXPECT_FALSE(p.form.task_runs());
}

TEST(Registry, TheTraceTellsHandlerSecondsAndYields) {
    test_program p;
    p.screen.seconds_per_yield = 0.5;
    p.files.add_file("/prog/文件清单.txt", "/d/a\r\n/d/b\r\n");
    std::vector<std::string> told;
    p.form.trace = [&](std::string_view name, double seconds, std::int64_t yields) {
        told.push_back(std::string(name) + " " + std::to_string(seconds) + " " + std::to_string(yields));
    };
    p.form.run("command21_click");  // names match in either case; two lines are two yields
    EXPECT_EQ(told, std::vector<std::string>{"Command21_Click 1.000000 2"});
}

}  // namespace
}  // namespace corvane
