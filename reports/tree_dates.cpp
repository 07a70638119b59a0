// The bounds of the tree's window: the month to pick a day from, and lengths that give way to one another.
#include <algorithm>

#include "core/model/main_form.h"
#include "core/text/date_text.h"
#include "core/text/text_format.h"
#include "reports/tree_form.h"

namespace corvane {

void tree_form::show_month(int box) {
    month_box_ = box;
    double days = 0;
    // What is no date, or none yet, opens the present month.
    MonthView1.text = parse_date(texts[static_cast<std::size_t>(box)]->text, days) && days != 0
                          ? date_text(days)
                          : date_text(main_.outside.screen.now());
    MonthView1.visible = !MonthView1.visible;
}

void tree_form::MonthView1_DateClick() {
    control& box = *texts[static_cast<std::size_t>(month_box_)];
    control& other = *texts[month_box_ == 5 ? 6 : 5];
    box.text = MonthView1.text;
    if (texts[5]->text > texts[6]->text) other.text = box.text;
}

void tree_form::Text3_Change() {
    const std::int32_t least = whole_number(texts[3]->text);
    if (least > whole_number(texts[4]->text)) texts[4]->text = std::to_string(std::int64_t{least} + 1);
}

void tree_form::Text4_Change() {
    const std::int32_t most = whole_number(texts[4]->text);
    if (most < whole_number(texts[3]->text)) texts[3]->text = std::to_string(std::int64_t{most} - 1);
}

}  // namespace corvane
