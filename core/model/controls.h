// Control models: named controls with just the properties that the program reads or writes. Handlers and
// tasks change these and nothing else; a front end copies what changed to its widgets.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvane {

enum class control_kind {
    form,
    picture,
    label,
    button,
    menu_item,
    text_box,
    check_box,
    frame,
    list_box,
    list_view,
    status_bar,
    text_pane,
    colour_bar,
    splitter,
    timer,
    scroll_bar,
    progress_bar
};

// In twips, as the stored settings are. A front end scales.
struct rectangle {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool operator==(const rectangle&) const = default;
};

// The system's button face in place of a colour.
constexpr std::int32_t button_face = static_cast<std::int32_t>(0x8000000F);

class control {
  public:
    control(control_kind kind, std::string name) : kind_(kind), name_(std::move(name)) {}
    virtual ~control() = default;
    control(const control&) = delete;
    control& operator=(const control&) = delete;

    control_kind kind() const { return kind_; }
    // Unique within its form; an element of an array is "Label3(5)".
    const std::string& name() const { return name_; }

    std::string caption;
    std::string tooltip;
    std::string text;
    bool visible = true;
    bool enabled = true;
    int value = 0;  // check mark: 0 or 1; of a menu item 0 or -1
    int help_context = 0;
    std::int32_t back_colour = button_face;
    rectangle place;

  private:
    control_kind kind_;
    std::string name_;
};

class list_box : public control {
  public:
    explicit list_box(std::string name) : control(control_kind::list_box, std::move(name)) {}

    struct row {
        std::string text;
        bool selected = false;
        bool checked = false;
        std::string tooltip;
    };

    const std::vector<row>& rows() const { return rows_; }
    std::uint64_t revision() const { return revision_; }
    void clear();
    void add(std::string words, std::string tip = {});
    void remove(std::size_t index);
    void select(std::size_t index, bool selected);
    // Selects this row and no other.
    void select_only(std::size_t index);
    // The check mark of a row; whether the rows show one is the front end's choice.
    void check(std::size_t index, bool checked);
    void add_checked(std::string words, bool checked);
    // All rows at once, in place of those that there are.
    void take(std::vector<row> rows);
    std::int32_t row_count() const { return static_cast<std::int32_t>(rows_.size()); }

    bool own_words = false;                  // the rows are words of the program, not names
    int font_size = 0;                       // points; 0: the front end's own
    std::int32_t fore_colour = button_face;  // of the text; button_face: the front end's own

  private:
    std::vector<row> rows_;
    std::uint64_t revision_ = 0;
};

// Seven panels, numbered 1 to 7.
class status_bar : public control {
  public:
    static constexpr int panel_count = 7;

    explicit status_bar(std::string name) : control(control_kind::status_bar, std::move(name)) {}

    std::string& panel(int number) { return texts_[static_cast<std::size_t>(number - 1)]; }
    const std::string& panel(int number) const { return texts_[static_cast<std::size_t>(number - 1)]; }
    int& width(int number) { return widths_[static_cast<std::size_t>(number - 1)]; }
    int width(int number) const { return widths_[static_cast<std::size_t>(number - 1)]; }
    // Empties panels 1 to 6.
    void clear_figures();

  private:
    std::array<std::string, panel_count> texts_;
    // Relative widths; a front end shares out its own width by them.
    std::array<int, panel_count> widths_{1700, 1900, 1600, 2100, 1900, 1300, 2000};
};

// Shows a text file. The front end reads its lines as they come into view.
class text_pane : public control {
  public:
    explicit text_pane(std::string name) : control(control_kind::text_pane, std::move(name)) {}

    // An empty path shows nothing. The file is read anew even when the path is the same.
    void load_file(std::string path);
    const std::string& path() const { return path_; }
    std::uint64_t revision() const { return revision_; }

  private:
    std::string path_;
    std::uint64_t revision_ = 0;
};

// While enabled, its handler runs each `interval` milliseconds.
class timer_control : public control {
  public:
    timer_control(std::string name, int milliseconds)
        : control(control_kind::timer, std::move(name)), interval(milliseconds) {
        enabled = false;
    }
    int interval;
};

// A value between two bounds: a scroll bar, or a bar that shows how far something has come.
class range_control : public control {
  public:
    range_control(control_kind kind, std::string name, int lowest, int highest)
        : control(kind, std::move(name)), minimum(lowest), maximum(highest) {}
    int minimum;
    int maximum;
};

struct colour_parts {
    double red = 0;
    double green = 0;
    double blue = 0;
};

// The bar that grows from the left and runs from its start colour into its end colour. Colours are 0xBBGGRR.
class colour_bar : public control {
  public:
    explicit colour_bar(std::string name) : control(control_kind::colour_bar, std::move(name)) {}

    // Shows the bar. What is drawn from now on runs between these colours, whatever came first, they or the
    // scale.
    void set_colours(std::int32_t back, std::int32_t start, std::int32_t end);
    // Clears the bar. With a total below 1 nothing else changes.
    void set_scale(std::int32_t total);
    void draw(std::int32_t position);
    void clear();

    std::int32_t back_colour() const { return back_; }
    std::int32_t fill_colour() const { return fill_; }
    std::int32_t total() const { return total_; }
    // Filled part of the inner width, 0 to 1.
    double filled() const { return filled_; }

  private:
    std::int32_t back_ = 0xC0C0C0;
    std::int32_t fill_ = 0;
    std::int32_t total_ = 0;
    colour_parts start_;
    colour_parts end_;
    double filled_ = 0;
};

}  // namespace corvane
