// The help as files: the table of contents and the words of its pages. Used by help_window.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace corvane {

struct help_page {
    QString file;  // its name in the folder
    QString title;
    QString group;  // the heading of the contents that it stands under
};

struct help_hit {
    std::size_t page;  // index in pages()
    QString excerpt;   // the words around the first hit
};

class help_pages {
  public:
    static constexpr char contents_file[] = "contents.htm";

    // Reads the table of contents of a folder. Without one there are no pages.
    explicit help_pages(QString folder);

    const QString& folder() const { return folder_; }
    const std::vector<help_page>& pages() const { return pages_; }

    // The pages that hold every word, parted by blanks and without regard to case, those with the word in
    // their title first. Where none does, the pages that hold most of what was typed: a message may hold a
    // path or a number.
    std::vector<help_hit> search(const QString& words);

  private:
    const QString& text_of(std::size_t page);
    QString excerpt_of(std::size_t page, const QString& word);

    QString folder_;
    std::vector<help_page> pages_;
    std::vector<QString> texts_;  // by page; read at the first search
};

}  // namespace corvane
