// The names of the program's own files, all in the program's folder. Used by whatever reads, writes or shows
// one.
#pragma once

namespace corvane::data_file {

// Settings and lists that the user edits.
constexpr char environment[] = "Tavrel环境.txt";
constexpr char added_settings[] = "附加设置.txt";
constexpr char selected_directories[] = "比较文件_目录清单.txt";
constexpr char excluded_directories[] = "不参加搜索的目录.txt";
constexpr char excluded_types[] = "不参加比较的文件类型.txt";
constexpr char only_types[] = "仅搜索的文件类型.txt";
constexpr char common_types[] = "常用文件扩展名.txt";
constexpr char types_by_kind[] = "文件类型归类.txt";
constexpr char types_by_name[] = "文件扩展名列表.txt";
constexpr char protected_directories[] = "受保护的目录.txt";
constexpr char protected_aside[] = "受保护的目录.旧.txt";  // one that could not be understood
constexpr char recent_directories[] = "最近的目录.txt";
constexpr char recent_aside[] = "最近的目录.旧.txt";  // one that could not be read to its end
constexpr char preview[] = "预览.txt";                // whether the preview is shown
constexpr char window_looks[] = "窗口状态.txt";       // widths, order and folders of the windows
constexpr char notes[] = "备记录.txt";
constexpr char help[] = "Corvane帮助.chm";

// Results.
constexpr char file_list[] = "文件清单.txt";
constexpr char shown_file_list[] = "temp.txt";  // the file list as a user reads it
constexpr char archive_errors[] = "err.txt";
constexpr char same_files[] = "相同文件.txt";
constexpr char different_files[] = "不相同文件.txt";
constexpr char empty_directories[] = "spasedir.txt";
constexpr char history[] = "run_history.txt";    // signatures of earlier runs
constexpr char contents[] = "run_contents.txt";  // which contents they have found equal
constexpr char marks[] = "标记.txt";             // of the same-file view, from the last run
constexpr char marks_aside[] = "标记.旧.txt";    // those of another version
constexpr char recycled_runs[] = "删除记录";     // a folder: a file for each run to the recycle bin
constexpr char run_records[] = "run_time_rem.txt";
constexpr char result_page[] = "相同文件报告.html";

// What leaves the program for others.
constexpr char spreadsheet[] = "filelist.xls";
constexpr char exported_paths[] = "filelist_txt_.txt";
constexpr char same_files_spreadsheet[] = "相同文件.xls";
constexpr char tree_text[] = "tree_file_list.txt";
constexpr char tree_spreadsheet[] = "tree_file_list.xls";
// All of the above: without a place on the disk they are of no use.
constexpr const char* exports[] = {spreadsheet, exported_paths, same_files_spreadsheet, tree_text,
                                   tree_spreadsheet};

// Work to do.
constexpr char archive_deletions[] = "winrar_del_file.txt";  // entries marked for deletion
constexpr char archive_members[] = "delrarfile.txt";         // what the archive tool reads

// The error trail.
constexpr char trail[] = "err_rec.txt";
constexpr char avoided_files[] = "avoid.txt";

// What a user would miss: all that a later version reads again. Taken over from an earlier place as it
// stands; first what keeps files from being deleted. Marks are left: they hold for the very store that they
// were written with; and so are contents, which the next comparison finds out again.
constexpr const char* kept[] = {
    protected_directories, environment,    added_settings, window_looks,  selected_directories,
    excluded_directories,  excluded_types, only_types,     common_types,  types_by_kind,
    types_by_name,         notes,          file_list,      same_files,    different_files,
    empty_directories,     history,        run_records,    avoided_files,
};
// Those of them that ship with the program.
constexpr const char* shipped[] = {excluded_directories, excluded_types, only_types,
                                   common_types,         types_by_kind,  types_by_name};

}  // namespace corvane::data_file
