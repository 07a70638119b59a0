#include "core/model/export_frames.h"

#include "core/model/main_form.h"

namespace corvane {

void add_export_frames(Tavrel& form) {
    struct added_control {
        control_kind kind;
        const char* name;
        const char* caption;
    };
    static constexpr added_control controls[] = {
        {control_kind::frame, "Frame5", "工具"},
        {control_kind::button, "Command8", "相同文件清单文本"},
        {control_kind::button, "Command9", "相同文件的xls清单"},
        {control_kind::button, "Command36", "树状目录"},
        {control_kind::button, "Command33", "导出文件清单到excel"},
        {control_kind::label, "Label6", "目录层数"},
        {control_kind::label, "Label7", "不导出的后缀类型"},
    };
    for (const added_control& each : controls) form.add<control>(each.kind, each.name).caption = each.caption;
    form.find("Frame5")->visible = false;
    form.Frame6.visible = false;
    form.Frame6.caption = "清单导出选择";
    form.Frame6.tooltip = "双击退出";
    form.Text3.tooltip = "指定的层数以内的导出,文件目录层数超过的不导出,0表示全部导出";
    form.Text4.tooltip = "对有指定后缀名的文件不导出,如GIF,多个之间用/相隔.如gif/dll";
}

}  // namespace corvane
