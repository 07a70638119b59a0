#include "forms/directory_model.h"

#include <QApplication>
#include <QCollator>
#include <QStyle>
#include <algorithm>

#include "forms/colours.h"
#include "forms/screen_text.h"

namespace corvane {

directory_model::directory_model(file_system& files, QObject* parent)
    : QAbstractItemModel(parent), files_(files) {}

directory_model::~directory_model() = default;

void directory_model::set_root(std::string path) {
    beginResetModel();
    root_ = std::make_unique<node>();
    root_->name = std::move(path);
    endResetModel();
}

void directory_model::show_hidden(bool shown) {
    if (shown == hidden_shown_) return;
    hidden_shown_ = shown;
    if (root_) set_root(root_->name);
}

directory_model::node* directory_model::node_of(const QModelIndex& index) const {
    return static_cast<node*>(index.internalPointer());
}

std::string directory_model::path_of(const node& place) const {
    if (!place.parent) return place.name;
    std::string above = path_of(*place.parent);
    if (above.empty() || above.back() != files_.separator()) above += files_.separator();
    return above + place.name;
}

std::string directory_model::path(const QModelIndex& index) const {
    return index.isValid() ? path_of(*node_of(index)) : std::string();
}

QModelIndex directory_model::find(const std::string& path) {
    if (!root_ || !path.starts_with(root_->name)) return {};
    QModelIndex at = index(0, 0);
    std::size_t start = root_->name.size();
    while (start < path.size()) {
        const std::size_t end = std::min(path.find(files_.separator(), start), path.size());
        const std::string name = path.substr(start, end - start);
        if (!name.empty()) {
            fetchMore(at);
            const auto& children = node_of(at)->children;
            const auto found = std::find_if(children.begin(), children.end(),
                                            [&](const auto& child) { return child->name == name; });
            if (found == children.end()) return {};
            at = createIndex((*found)->row, 0, found->get());
        }
        start = end + 1;
    }
    return at;
}

QModelIndex directory_model::index(int row, int column, const QModelIndex& parent) const {
    if (!root_ || row < 0 || column != 0) return {};
    if (!parent.isValid()) return row == 0 ? createIndex(0, 0, root_.get()) : QModelIndex();
    const node* above = node_of(parent);
    if (static_cast<std::size_t>(row) >= above->children.size()) return {};
    return createIndex(row, 0, above->children[static_cast<std::size_t>(row)].get());
}

QModelIndex directory_model::parent(const QModelIndex& child) const {
    node* above = child.isValid() ? node_of(child)->parent : nullptr;
    return above ? createIndex(above->row, 0, above) : QModelIndex();
}

int directory_model::rowCount(const QModelIndex& parent) const {
    if (!root_) return 0;
    return parent.isValid() ? static_cast<int>(node_of(parent)->children.size()) : 1;
}

bool directory_model::hasChildren(const QModelIndex& parent) const {
    if (!root_) return false;
    if (!parent.isValid()) return true;
    const node* place = node_of(parent);
    // Not known before the directory has been opened.
    return !place->listed || !place->children.empty();
}

bool directory_model::canFetchMore(const QModelIndex& parent) const {
    return parent.isValid() && !node_of(parent)->listed;
}

void directory_model::fetchMore(const QModelIndex& parent) {
    if (!canFetchMore(parent)) return;
    node* above = node_of(parent);
    above->listed = true;
    const auto reader = files_.open_directory(path_of(*above));
    if (!reader) return;
    struct entry {
        std::string name;
        bool hidden;
    };
    std::vector<entry> found;
    std::string_view name;
    entry_kind kind;
    while (reader->next(name, kind)) {
        if (kind != entry_kind::directory && kind != entry_kind::link_to_directory) continue;
        if (hidden_shown_ || !reader->hidden()) found.push_back({std::string(name), reader->hidden()});
    }
    if (found.empty()) return;
    QCollator order;
    order.setNumericMode(true);
    order.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(found.begin(), found.end(), [&](const entry& a, const entry& b) {
        if (a.hidden != b.hidden) return b.hidden;
        const int compared = order.compare(screen_line(a.name), screen_line(b.name));
        return compared != 0 ? compared < 0 : a.name < b.name;
    });
    beginInsertRows(parent, 0, static_cast<int>(found.size()) - 1);
    for (entry& each : found) {
        auto child = std::make_unique<node>();
        child->name = std::move(each.name);
        child->hidden = each.hidden;
        child->parent = above;
        child->row = static_cast<int>(above->children.size());
        above->children.push_back(std::move(child));
    }
    endInsertRows();
}

QVariant directory_model::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const node* place = node_of(index);
    switch (role) {
        case Qt::DisplayRole:
            return screen_line(place->name);
        case Qt::ToolTipRole:
            return screen_line(path_of(*place));
        case Qt::DecorationRole:
            return QApplication::style()->standardIcon(QStyle::SP_DirIcon);
        case Qt::ForegroundRole:
            return place->hidden ? QVariant(quiet_text(QApplication::palette())) : QVariant();
        default:
            return {};
    }
}

}  // namespace corvane
