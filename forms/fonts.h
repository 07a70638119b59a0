// The fonts of the program: one that shows Chinese where the machine has such a font, and one of even widths
// for texts in columns. Used by main and by the panes.
#pragma once

#include <QFont>

namespace corvane {

// The desktop's font, with Chinese families to fall back on.
QFont interface_font(QFont desktop_font);

QFont even_font();

}  // namespace corvane
