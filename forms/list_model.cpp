#include "forms/list_model.h"

#include "browser/list_views.h"
#include "core/text/text_format.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"

namespace corvane {

void list_model::reset() {
    beginResetModel();
    columns_ = list_.columns();
    shown_rows_ = list_.row_count();
    endResetModel();
}

void list_model::grow() {
    if (list_.row_count() <= shown_rows_) return;
    beginInsertRows({}, shown_rows_, list_.row_count() - 1);
    shown_rows_ = list_.row_count();
    endInsertRows();
}

bool list_model::same_columns() const {
    if (columns_.size() != list_.columns().size()) return false;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const list_column& shown = columns_[i];
        const list_column& present = list_.columns()[i];
        if (shown.header != present.header || shown.alignment != present.alignment ||
            shown.content != present.content)
            return false;
    }
    return true;
}

int list_model::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shown_rows_;
}

int list_model::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QString list_model::text(int row, int column) const {
    if (!has_cell(row, column)) return {};
    if (list_.columns()[static_cast<std::size_t>(column)].content == cell_content::number)
        return QString::number(list_.number_cell(row + 1, column));
    return screen_line(list_.text_cell(row + 1, column));
}

QString list_model::text_beside(int row, int column) const {
    if (second_path == 0 || (column != first_path && column != second_path)) return {};
    return text(row, first_path + second_path - column);
}

std::uint32_t list_model::colour(int row, int column) const {
    return has_cell(row, column) ? list_.colour(row + 1, column) : cell_colour::colour_text;
}

bool list_model::looks_marked(int row, int column) const {
    if (!has_cell(row, column)) return false;
    if (list_.columns()[static_cast<std::size_t>(column)].content != cell_content::text) return false;
    return list_.colour(row + 1, column) == cell_colour::mark_red ||
           marks.holds(list_.text_cell(row + 1, column));
}

std::uint32_t list_model::painted_colour(int row, int column) const {
    const std::uint32_t own = colour(row, column);
    const bool plain = own == cell_colour::colour_text || own == cell_colour::window_text ||
                       own == cell_colour::colour_gray || own == cell_colour::colour_archive;
    return plain && looks_marked(row, column) ? cell_colour::mark_red : own;
}

QString list_model::group_words(int row, int column) const {
    if (column != view_of(list_modes::same_files).first_path || !has_cell(row, column)) return {};
    const group_bands::group_size size = bands.first_row(row + 1);
    if (size.copies < 2) return {};
    return own_line(std::to_string(size.copies) + " 份, " + short_size(size.freed));
}

bool list_model::is_protected(int row, int column) const {
    if (!covers || !has_cell(row, column)) return false;
    if (list_.columns()[static_cast<std::size_t>(column)].content != cell_content::text) return false;
    const std::string_view path = list_.text_cell(row + 1, column);
    return !path.empty() && covers(path);
}

// What the eye sees by the colour, in words; empty for an ordinary cell.
const char* list_model::meaning(int row, int column) const {
    switch (painted_colour(row, column)) {
        case cell_colour::mark_red:
            return "红色:欲删除的文件";
        case cell_colour::mark_blue:
            return "蓝色:因属性原因删不掉的文件";
        case cell_colour::colour_archive:
            return "紫色:压缩包内部文件";
        case cell_colour::colour_gray:
            return "灰色:与上个文件为同一文件";
        case cell_colour::colour_found:
            return "水红:查找到的文件";
        default:
            return "";
    }
}

QVariant list_model::data(const QModelIndex& index, int role) const {
    switch (role) {
        case Qt::DisplayRole:
        case Qt::ToolTipRole:
            return text(index.row(), index.column());
        case colour_role:
            return colour(index.row(), index.column());
        case struck_role:
            return looks_marked(index.row(), index.column());
        case Qt::AccessibleTextRole:
            return text(index.row(), index.column());
        case Qt::AccessibleDescriptionRole:
            return own_line(is_protected(index.row(), index.column()) ? "受保护的文件"
                                                                      : meaning(index.row(), index.column()));
        default:
            return {};
    }
}

QVariant list_model::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    const list_column& column = columns_[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return own_line(column.header);
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(
            Qt::AlignVCenter | (column.alignment == text_alignment::right ? Qt::AlignRight : Qt::AlignLeft));
    return {};
}

}  // namespace corvane
