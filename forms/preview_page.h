// The first page of a document, drawn by a program of its own, `pdftoppm` of poppler-utils: what a hostile
// document breaks is that process. Used by preview_worker; written twice, in linux/ and windows/.
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

namespace corvane {

// The program where the system has it; empty: pages are not drawn.
QString page_program();
// What is said of a document where there is none.
const char* no_page_words();

inline constexpr int page_milliseconds = 5000;

// The page as a picture file of the format png; empty when the program fails, takes longer than
// `milliseconds`, or has not ended when `given_up` says so. It gets the document through its input, no path,
// bounded memory and time, and can write no file.
QByteArray first_page(const QString& program, const QByteArray& document,
                      const std::function<bool()>& given_up, int milliseconds = page_milliseconds);

}  // namespace corvane
