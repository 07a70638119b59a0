// What stands in the work area before there is a list: the road in three steps. Used by the main window.
#pragma once

#include <QWidget>

namespace corvane {

class start_page : public QWidget {
  public:
    explicit start_page(QWidget* parent);
};

}  // namespace corvane
