#include "forms/preview_page.h"

namespace corvane {

// No process here is bounded in memory and time as the contract wants it: no page is drawn.

QString page_program() {
    return {};
}

const char* no_page_words() {
    return "第一页不能显示";
}

QByteArray first_page(const QString&, const QByteArray&, const std::function<bool()>&, int) {
    return {};
}

}  // namespace corvane
