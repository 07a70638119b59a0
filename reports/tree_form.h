// The window tree_dir as a model: what of the file list is written as an indented tree, and how.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/model/form_model.h"
#include "core/model/handlers.h"
#include "reports/tree_files.h"
#include "reports/tree_suffixes.h"

namespace corvane {

class Tavrel;

class tree_form : public form_model {
  public:
    explicit tree_form(Tavrel& main);

    std::array<control*, 9> texts{};   // Text1 to Text8 from index 1
    std::array<control*, 7> checks{};  // Check1 to Check6 from index 1
    std::array<control*, 8> labels{};  // Label1 to Label7 from index 1
    std::array<control*, 2> Option1{};
    std::array<control*, 5> commands{};  // Command1 to Command4 from index 1
    control& Picture1;
    list_box& List1;              // the preview, then the lines that were written
    list_view& ListView1;         // the suffixes
    control& MonthView1;          // its text is the date that it shows
    range_control& ProgressBar1;  // files of all

    suffix_list suffixes;
    int suffix_target = 1;  // 1: Text7, 2: Text8, whichever was double-clicked last

    // The handlers of the window, as "tree_dir.NAME", and the one that opens it. They hold on to the window.
    handler_table handlers();
    // Reads the stored list where there is none, and shows the window with a preview of the first files.
    void open();
    // Stores the place. What is being written is given up.
    void Form_Unload();

    // "输出": the file list as a tree, into the list and the file, which is then opened. Entries without a
    // file on the disk leave file_list for good.
    void Command1_Click();
    // "查找全部后缀"
    void Command4_Click();

  private:
    enum class wrong { nothing, lengths, dates };

    void add_controls();
    void set_help_contexts();
    void load();
    void mend_place();
    void fill_controls();
    void enable_bounds();
    void show_preview();
    // All controls into the settings; what is wrong with them.
    wrong read_controls();
    void complain_of(wrong found);
    bool stops() const;
    void show_suffixes(int target);
    void show_month(int box);
    void MonthView1_DateClick();
    void Text3_Change();
    void Text4_Change();
    void choose_format(int index);

    bool take_file_list();
    void shrink_list();
    bool make_lines(std::vector<list_box::row>& lines);
    // False: the failure has been told.
    bool write_lines(const std::vector<list_box::row>& lines, const std::string& path);
    std::string output_path() const;

    Tavrel& main_;
    tree_files files_;
    int month_box_ = 5;  // Text5 or Text6
    bool loaded_ = false;
};

}  // namespace corvane
