// The preview below the list: both files of the row side by side, and where else copies lie. Reads on a
// thread of its own, so that the list never waits. Used by main_window.
#pragma once

#include <QTimer>
#include <QWidget>
#include <array>
#include <cstdint>
#include <memory>

#include "browser/preview.h"
#include "core/model/main_form.h"
#include "forms/preview_worker.h"

class QLabel;

namespace corvane {

class preview_side;

class preview_pane : public QWidget {
  public:
    preview_pane(Tavrel& form, QWidget* parent);
    ~preview_pane() override;

    // Shows the row of the list, 0 for none, when it has stood for a moment. Nothing is read while the pane
    // is hidden.
    void sync(std::int32_t row);

    preview_side& side(std::size_t number) { return *sides_[number]; }

  private:
    void ask();
    void take(const preview_answer& answer);
    void show_copies(const preview_question& question);

    Tavrel& form_;
    std::array<preview_side*, 2> sides_{};
    QLabel* copies_;
    QLabel* nothing_;
    QTimer pause_;
    std::int32_t row_ = -1;
    std::uint64_t cells_ = 0;  // revision of what is shown
    std::uint64_t layout_ = 0;
    std::uint64_t asked_fill_ = 0;  // the load whose row was asked for
    preview_question question_;
    std::uint64_t number_ = 0;  // of the newest question
    std::unique_ptr<preview_worker> worker_;
};

}  // namespace corvane
