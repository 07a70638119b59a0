// The page of the result.
#include "core/language/translation.h"

namespace corvane {

std::span<const translation_row> english_reports() {
    static constexpr translation_row rows[] = {
        {"相同文件报告", "Duplicate files"},
        {"搜索目录：", "Directory searched: "},
        {"检查的文件", "Files checked"},
        {"相同文件组", "Groups of duplicates"},
        {"多余的文件", "Files to spare"},
        {"多余文件占用", "Space to spare"},
        {"没有相同文件。", "There are no duplicates."},
        {"多余：每组相同文件除一个以外的全部文件。", "To spare: all files of a group but one."},
        {"相同文件的字节：按类型", "Bytes of duplicates by type"},
        {"相同文件的字节：按目录", "Bytes of duplicates by directory"},
        {"（无后缀）", "(no suffix)"},
        {"{n} 个文件，每个 {}", "{n} files of {}"},
        {"还有 {} 个文件", "{} more files"},
        {"{n} 个文件", "{n} files"},
        {"其余 {} 项", "{} others"},
        {"最大的 {} 组（共 {} 组）", "The {} largest groups of {}"},
        {"全部相同文件组", "All groups of duplicates"},
    };
    return rows;
}

}  // namespace corvane
