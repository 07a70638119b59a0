// The directories below one root as a tree, each listed when it is opened, through the program's own view of
// the disk. Used by directory_window.
#pragma once

#include <QAbstractItemModel>
#include <memory>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

class directory_model : public QAbstractItemModel {
  public:
    directory_model(file_system& files, QObject* parent);
    ~directory_model() override;

    // `path` ends in the separator. The root itself is the one row at the top.
    void set_root(std::string path);
    // Starts anew with or without the directories that are hidden.
    void show_hidden(bool shown);
    bool hidden_shown() const { return hidden_shown_; }
    // The path of a row, as the program writes paths, without a closing separator except for a root.
    std::string path(const QModelIndex& index) const;
    // The row of a path that lies below the root, listing what is on the way; invalid when it is not there,
    // or hidden while hidden ones are not shown.
    QModelIndex find(const std::string& path);

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& = {}) const override { return 1; }
    bool hasChildren(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    struct node {
        std::string name;
        node* parent = nullptr;
        int row = 0;
        bool listed = false;
        bool hidden = false;
        std::vector<std::unique_ptr<node>> children;
    };

    node* node_of(const QModelIndex& index) const;
    std::string path_of(const node& place) const;

    file_system& files_;
    std::unique_ptr<node> root_;
    bool hidden_shown_ = false;
};

}  // namespace corvane
