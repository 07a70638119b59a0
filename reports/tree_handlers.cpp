// The handlers of the tree's window under their names.
#include "core/model/main_form.h"
#include "core/model/window_handlers.h"
#include "core/tasks/help.h"
#include "reports/tree_form.h"

namespace corvane {

handler_table tree_form::handlers() {
    handler_table table;
    // The preview and the suffixes read the list, which a running task may be making.
    table.push_back({"Command36_Click", [this](Tavrel&) { open(); }, starts_task});
    window_handlers bind(table, *this);
    bind("Form_Unload", [this] { Form_Unload(); });
    bind(
        "Command1_Click", [this] { Command1_Click(); }, starts_task);
    bind("Command2_Click", [this] { Form_Unload(); });
    bind("Command3_Click", [this] { open_topic(main_, 50); });
    bind(
        "Command4_Click", [this] { Command4_Click(); }, starts_task);
    bind("Picture1_Click", [this] {
        const outcome opened = main_.outside.desktop.open_document(output_path());
        if (!opened) main_.complain(opened.reason);
    });
    bind("Text3_Change", [this] { Text3_Change(); });
    bind("Text4_Change", [this] { Text4_Change(); });
    bind("Text5_DblClick", [this] { show_month(5); });
    bind("Text6_DblClick", [this] { show_month(6); });
    bind(
        "Text7_DblClick", [this] { show_suffixes(1); }, starts_task);
    bind(
        "Text8_DblClick", [this] { show_suffixes(2); }, starts_task);
    bind("MonthView1_DateClick", [this] { MonthView1_DateClick(); });
    bind("ListView1_DblClick", [this] { suffixes.take_selected(*texts[suffix_target == 2 ? 8 : 7]); });
    bind("ListView1_ColumnClick", [this] { suffixes.sort(main_.list_event.column); });
    bind("Check5_Click", [this] { enable_bounds(); });
    bind("Check6_Click", [this] { enable_bounds(); });
    bind("Option1(0)_Click", [this] { choose_format(0); });
    bind("Option1(1)_Click", [this] { choose_format(1); });
    return table;
}

}  // namespace corvane
