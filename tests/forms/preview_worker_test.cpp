// A preview whose disk is slow: the list never waits, what comes late is dropped. The disk is held by a gate,
// not by time.
#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>
#include <condition_variable>
#include <mutex>

#include "browser/preview.h"
#include "forms/list_table.h"
#include "forms/main_window.h"
#include "forms/preview_pane.h"
#include "forms/preview_side.h"
#include "forms/preview_worker.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

// Files that are opened wait behind it until it opens.
class gate {
  public:
    void pass() {
        std::unique_lock lock(guard_);
        ++waiting_;
        changed_.notify_all();
        changed_.wait(lock, [this] { return open_; });
    }
    void await_one() {
        std::unique_lock lock(guard_);
        changed_.wait(lock, [this] { return waiting_ > 0; });
    }
    void note_close() {
        const std::lock_guard lock(guard_);
        closed_ = true;
        changed_.notify_all();
    }
    void await_close() {
        std::unique_lock lock(guard_);
        changed_.wait(lock, [this] { return closed_; });
    }
    bool holds_one() {
        const std::lock_guard lock(guard_);
        return waiting_ > 0;
    }
    void open() {
        const std::lock_guard lock(guard_);
        open_ = true;
        changed_.notify_all();
    }

  private:
    std::mutex guard_;
    std::condition_variable changed_;
    int waiting_ = 0;
    bool open_ = false;
    bool closed_ = false;  // a file behind it
};

class held_reader : public file_reader {
  public:
    held_reader(std::unique_ptr<file_reader> file, gate& held) : file_(std::move(file)), held_(held) {}
    ~held_reader() override {
        file_.reset();
        held_.note_close();
    }
    held_reader(const held_reader&) = delete;
    held_reader& operator=(const held_reader&) = delete;
    std::int64_t read_at(std::int64_t offset, std::span<std::byte> buffer) override {
        held_.pass();
        return file_->read_at(offset, buffer);
    }
    void will_read(std::int64_t) override {}
    void fetch(std::int64_t, std::int64_t) override {}

  private:
    std::unique_ptr<file_reader> file_;
    gate& held_;
};

class gated_disk : public memory_file_system {
  public:
    outcome_with<file_reader> open_file(std::string_view path) override {
        auto file = memory_file_system::open_file(path);
        if (file && path == held_path)
            return std::unique_ptr<file_reader>(new held_reader(std::move(file.object), slow));
        return file;
    }
    std::string held_path;
    gate slow;
};

// The windows over a disk of which one file is slow.
struct slow_window : forms_program {
    slow_window() : forms_program(std::make_unique<gated_disk>()) {
        files.add_file("/slow", "slow text");
        files.add_file("/quick", "quick text");
        disk.held_path = "/slow";
        list_view& rows = form.ListView1;
        for (const char* header : {"", "序号", "长度"})
            rows.add_column({header, 500, text_alignment::left, cell_content::number});
        for (const char* header : {"重复文件1", "重复文件2"})
            rows.add_column({header, 4000, text_alignment::left, cell_content::text});
        for (const char* path : {"/slow", "/quick"}) {
            const std::int32_t row = rows.add_row();
            rows.set_text(row, 3, path);
            rows.set_text(row, 4, path);
        }
        rows.visible = true;
        form.run("preview_m");
        windows.sync();
        settle();
    }
    ~slow_window() { disk.slow.open(); }

    void choose(std::int32_t row) {
        form.ListView1.selected_row = row;
        windows.sync();
    }
    QString text() { return windows.main().preview().side(0).text(); }

    gated_disk& disk = static_cast<gated_disk&>(files);
};

TEST(slow_preview, the_list_does_not_wait_for_a_slow_disk_and_late_answers_are_dropped) {
    slow_window w;
    w.choose(1);
    // The pause runs out within the event loop, and the worker is held.
    ASSERT_TRUE(QTest::qWaitFor([&] { return w.disk.slow.holds_one(); }, 20'000));
    EXPECT_EQ(w.text(), QString::fromUtf8("正在读…"));
    // Meanwhile the list takes keys and shows another row.
    QTest::keyClick(&w.windows.main().list(), Qt::Key_Down);
    EXPECT_EQ(w.form.ListView1.selected_row, 2);
    w.windows.sync();
    w.disk.slow.open();
    ASSERT_TRUE(QTest::qWaitFor([&] { return w.text().contains(QStringLiteral("quick text")); }, 20'000));
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
    EXPECT_TRUE(w.text().contains(QStringLiteral("quick text"))) << "what came late is not shown";
}

TEST(slow_preview, nothing_is_read_while_it_is_hidden) {
    slow_window w;
    auto* pause = w.windows.main().preview().findChild<QTimer*>();
    ASSERT_NE(pause, nullptr);
    w.choose(2);
    EXPECT_TRUE(pause->isActive());
    EXPECT_LT(pause->interval(), 100);
    w.form.run("preview_m");
    w.windows.sync();
    EXPECT_FALSE(pause->isActive());
    w.choose(1);
    EXPECT_FALSE(pause->isActive());
    EXPECT_TRUE(w.files.opened.empty());
}

TEST(slow_preview, rows_that_a_task_has_in_work_are_not_looked_at) {
    slow_window w;
    auto* pause = w.windows.main().preview().findChild<QTimer*>();
    w.choose(2);
    pause->start(0);
    w.form.state.tasks_locked = true;
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
    EXPECT_FALSE(pause->isActive());
    EXPECT_TRUE(w.files.opened.empty());
    // The end of the task looks at the row that stands then.
    w.form.state.tasks_locked = false;
    w.choose(2);
    EXPECT_TRUE(pause->isActive());
}

TEST(slow_preview, shown_again_it_reads_again) {
    slow_window w;
    w.disk.slow.open();
    w.files.erase("/quick");
    w.choose(2);
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return w.text().contains(QString::fromUtf8("文件已经不在")); }, 20'000));
    w.files.add_file("/quick", "quick text");
    w.form.run("preview_m");
    w.windows.sync();
    w.form.run("preview_m");
    w.windows.sync();
    EXPECT_TRUE(QTest::qWaitFor([&] { return w.text().contains(QStringLiteral("quick text")); }, 20'000));
}

TEST(slow_preview, its_end_does_not_wait_for_a_disk_that_does_not_answer) {
    gated_disk files;
    files.add_file("/slow", "slow text");
    files.add_file("/quick", "quick text");
    files.held_path = "/slow";
    int answers = 0;
    {
        preview_worker worker(
            files, [&](const preview_answer&) { ++answers; }, 1);
        worker.ask(1, {"/slow", "/quick"});
        files.slow.await_one();
    }
    // The disk comes back after the end of the window: nothing is shown, and nothing more is asked.
    files.slow.open();
    files.slow.await_close();
    EXPECT_EQ(answers, 0);
    EXPECT_EQ(files.opened.count("/quick"), 0u);
}

TEST(slow_preview, a_newer_question_gives_up_the_one_in_work) {
    gated_disk files;
    files.add_file("/slow", "slow text");
    files.add_file("/quick", "quick text");
    files.held_path = "/slow";
    std::vector<std::uint64_t> answered;
    {
        preview_worker worker(files,
                              [&](const preview_answer& answer) { answered.push_back(answer.number); });
        worker.ask(1, {"/slow", "/quick"});
        files.slow.await_one();
        worker.ask(2, {});
        files.slow.open();
    }
    EXPECT_TRUE(answered.empty());
    EXPECT_EQ(files.opened.count("/quick"), 0u);
}

}  // namespace
}  // namespace corvane
