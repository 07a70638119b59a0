// Widths and order of the list over a restart, and the file that keeps them.
#include "browser/remembered_list.h"

#include <gtest/gtest.h>

#include "core/settings/remembered.h"
#include "tests/browser/list_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

constexpr char path[] = "/prog/窗口状态.txt";

texts first_paths(const list_view& list) {
    texts found;
    for (std::int32_t row = 1; row <= list.row_count(); ++row) found.push_back(list.cell(row, 3));
    return found;
}

struct restarted : list_program {
    // A program whose folder is that of one that has ended.
    explicit restarted(list_program& before) {
        for (const char* name : {"窗口状态.txt", "相同文件.txt", "标记.txt"})
            if (before.files.has(program_dir + name))
                files.add_file(program_dir + name, before.files.content_of(program_dir + name));
        for (const char* file : {"/d/1", "/d/2", "/d/3", "/e/1", "/e/2", "/e/3"}) files.add_file(file, "x");
        corvane.start();
        form.ListView1.place.width = 12000;
        form.run("Picture4_Click");
    }
};

void show_three(list_program& p) {
    p.corvane.start();
    p.show({{30, "/d/1", "/e/1"}, {10, "/d/2", "/e/2"}, {20, "/d/3", "/e/3"}});
}

TEST(RememberedList, TheOrderOfTheLastRunComesBack) {
    for (const int clicks : {1, 2}) {
        list_program p;
        show_three(p);
        for (int click = 0; click < clicks; ++click) {
            p.form.list_event = {};
            p.form.list_event.column = 2;
            p.form.run("ListView1_ColumnClick");
        }
        const texts order = first_paths(p.list());
        EXPECT_EQ(order, clicks == 1 ? (texts{"/d/2", "/d/3", "/d/1"}) : (texts{"/d/1", "/d/3", "/d/2"}));
        p.form.run("exit_sub");
        restarted again(p);
        EXPECT_EQ(first_paths(again.list()), order) << clicks;
        // A later load has the stated order.
        again.form.run("Picture4_Click");
        EXPECT_EQ(first_paths(again.list()), (texts{"/d/1", "/d/2", "/d/3"}));
    }
}

TEST(RememberedList, AFreshResultHasTheStatedOrder) {
    list_program p;
    show_three(p);
    p.form.list_event.column = 2;
    p.form.run("ListView1_ColumnClick");
    p.form.run("exit_sub");
    list_program q;
    q.files.add_file(path, p.files.content_of(path));
    show_three(q);
    EXPECT_EQ(first_paths(q.list()), (texts{"/d/1", "/d/2", "/d/3"}));
}

TEST(RememberedList, MarksSurviveTheSortOfTheStart) {
    list_program p;
    show_three(p);
    p.form.list_event.column = 2;
    p.form.run("ListView1_ColumnClick");
    p.list().set_colour(1, 3, red);
    p.form.run("exit_sub");
    restarted again(p);
    EXPECT_EQ(again.list().cell(1, 3), "/d/2");
    EXPECT_EQ(again.list().colour(1, 3), red);
}

TEST(RememberedList, WidthsComeBackByView) {
    list_program p;
    show_three(p);
    remember_width(p.form, 2, 1500);
    remember_width(p.form, 3, 4000);
    remember_width(p.form, 99, 4000);
    p.form.run("exit_sub");
    restarted again(p);
    apply_remembered_widths(again.form);
    EXPECT_EQ(again.list().columns()[2].width, 1500);
    EXPECT_EQ(again.list().columns()[3].width, 4000);
    EXPECT_EQ(again.list().columns()[1].width, 700) << "the stated one";
    // Another view has its own.
    again.state.list_mode = 2;
    again.list().set_column_width(2, 900);
    apply_remembered_widths(again.form);
    EXPECT_EQ(again.list().columns()[2].width, 900);
}

TEST(RememberedList, HostileValuesDoNothing) {
    for (const char* value : {"", "x", "-5", "0", "99999999999999", "12x", " 900", "59", "100001"}) {
        list_program p;
        p.files.add_file(path, std::string("Corvane windows 1\r\nwidth.0.2=") + value +
                                   "\r\nsort.0=" + value + "\r\n=5\r\nno sign\r\n\xff\r\n");
        p.corvane.start();
        p.show({{30, "/d/1", "/e/1"}, {10, "/d/2", "/e/2"}});
        p.files.add_file("/d/1"), p.files.add_file("/e/1"), p.files.add_file("/d/2"),
            p.files.add_file("/e/2");
        const int width = p.list().columns()[2].width;
        apply_remembered_widths(p.form);
        EXPECT_EQ(p.list().columns()[2].width, width) << value;
        apply_remembered_sort(p.form);
        EXPECT_EQ(first_paths(p.list()), (texts{"/d/1", "/d/2"})) << value;
    }
}

TEST(Remembered, AFileOfAnotherVersionIsLeftAsItIs) {
    memory_file_system files;
    files.add_file("/w", "Corvane windows 2\r\nsplitter=5\r\n");
    remembered_values values;
    values.read(files, "/w");
    EXPECT_EQ(values.value("splitter"), "");
    values.set("splitter", "7");
    EXPECT_TRUE(values.write(files, "/w"));
    EXPECT_EQ(files.content_of("/w"), "Corvane windows 2\r\nsplitter=5\r\n");
}

TEST(Remembered, NamesThatNobodyKnowsAreKept) {
    memory_file_system files;
    files.add_file("/w", "Corvane windows 1\r\npreview=1\r\na=b=c\r\n");
    remembered_values values;
    values.read(files, "/w");
    EXPECT_EQ(values.value("a"), "b=c");
    values.set("splitter", "7");
    EXPECT_TRUE(values.write(files, "/w"));
    EXPECT_EQ(files.content_of("/w"), "Corvane windows 1\r\na=b=c\r\npreview=1\r\nsplitter=7\r\n");
}

TEST(Remembered, NothingChangedWritesNothingAndAFailureIsTold) {
    memory_file_system files;
    remembered_values values;
    values.read(files, "/w");
    EXPECT_TRUE(values.write(files, "/w"));
    EXPECT_FALSE(files.has("/w"));
    values.set("a", "1");
    files.write_failure_path = "/w";
    EXPECT_FALSE(values.write(files, "/w"));
    files.write_failure_path.clear();
    EXPECT_TRUE(values.write(files, "/w"));
    EXPECT_EQ(files.content_of("/w"), "Corvane windows 1\r\na=1\r\n");
}

TEST(Remembered, EachPrefixIsRead) {
    memory_file_system files;
    const std::string whole = "Corvane windows 1\r\nsplitter=4500\r\nwidth.0.2=900\r\n";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        files.add_file("/w", whole.substr(0, length));
        remembered_values values;
        values.read(files, "/w");
        EXPECT_TRUE(std::string("4500").starts_with(values.value("splitter"))) << length;
    }
}

}  // namespace
}  // namespace corvane
