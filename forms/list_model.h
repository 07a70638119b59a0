// ListView1 as Qt sees it: reads core/list_view.h directly, cell by cell, on demand. Used by list_table.
#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <string_view>

#include "browser/group_bands.h"
#include "core/model/list_view.h"
#include "forms/marked_paths.h"

namespace corvane {

class list_model : public QAbstractTableModel {
  public:
    enum cell_role { colour_role = Qt::UserRole, struck_role };

    // `list` outlives the model.
    list_model(const list_view& list, QObject* parent) : QAbstractTableModel(parent), list_(list) {}

    // What is known of all rows; whoever shows them renews it.
    group_bands bands;
    marked_paths marks;

    // Whether a path lies in a protected folder; without it none does.
    std::function<bool(std::string_view path)> covers;

    // Takes over the present columns and rows.
    void reset();
    // Shows the rows that have come to stand behind those shown. Nothing else may have changed.
    void grow();
    // Rows that are shown; the list behind may have changed since.
    std::int32_t shown_rows() const { return shown_rows_; }
    bool same_columns() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // What a cell shows; empty where the list has no such cell any more.
    QString text(int row, int column) const;
    std::uint32_t colour(int row, int column) const;
    // The colour that it is painted in: a plain or gray cell takes the red of its path's mark in another row.
    std::uint32_t painted_colour(int row, int column) const;
    // The path is marked, here or in another row.
    bool looks_marked(int row, int column) const;
    // What the first row of a star says of its group, in the column of its first path; empty elsewhere.
    QString group_words(int row, int column) const;
    // What stands in the other column of paths; empty where a view has none.
    QString text_beside(int row, int column) const;
    int first_path = 0;  // the two columns of the view that stands; 0: it has no two
    int second_path = 0;
    // The cell shows a path in a protected folder.
    bool is_protected(int row, int column) const;
    const char* meaning(int row, int column) const;

  private:
    bool has_cell(int row, int column) const {
        return row >= 0 && row < list_.row_count() && column > 0 && column < list_.column_count();
    }

    const list_view& list_;
    std::int32_t shown_rows_ = 0;
    std::vector<list_column> columns_;
};

}  // namespace corvane
