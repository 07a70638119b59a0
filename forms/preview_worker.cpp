#include "forms/preview_worker.h"

#include <QImageReader>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <utility>

#include "forms/preview_page.h"
#include "platform/machine.h"
#include "platform/own_process.h"

namespace corvane {

namespace {

constexpr int most_megabytes = 256;  // that a decoder may take for one picture

void decode(preview_answer& found, const std::function<bool()>& given_up) {
    file_preview& file = found.file;
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(file.picture.data()),
                                                     static_cast<qsizetype>(file.picture.size()));
    if (file.kind == preview_kind::picture)
        found.picture = decode_picture(bytes, file.picture_format, given_up);
    if (file.kind != preview_kind::document) return;
    const QString program = page_program();
    if (!program.isEmpty())
        found.picture = decode_picture(first_page(program, bytes, given_up), "png", given_up);
    const bool drawn = !found.picture.image.isNull();
    if (!drawn && file.note.empty()) file.note = program.isEmpty() ? no_page_words() : "第一页不能显示";
}

}  // namespace

// What the thread and the object share; the thread alone has it when the object has gone without it.
struct preview_worker::work {
    explicit work(file_system& disk) : files(disk) {}

    void run();
    void answer(std::uint64_t number, const std::vector<std::string>& paths);

    file_system& files;
    const std::unique_ptr<text_encoding> encodings = make_text_encoding();  // of the thread
    std::function<void(preview_answer)> deliver;
    std::mutex guard;
    std::condition_variable changed;
    std::vector<std::string> paths;
    std::uint64_t waiting = 0;  // the question's number; 0: none
    bool ended = false;         // the thread
    std::atomic<std::uint64_t> newest{0};
    std::atomic<bool> ends{false};
};

preview_worker::preview_worker(file_system& files, std::function<void(preview_answer)> deliver,
                               int patience_milliseconds)
    : patience_milliseconds_(patience_milliseconds), work_(std::make_shared<work>(files)) {
    QImageReader::setAllocationLimit(most_megabytes);
    work_->deliver = std::move(deliver);
    thread_ = std::thread([shared = work_] { shared->run(); });
}

preview_worker::~preview_worker() {
    std::unique_lock lock(work_->guard);
    work_->ends = true;
    work_->changed.notify_all();
    const bool ended = work_->changed.wait_for(lock, std::chrono::milliseconds(patience_milliseconds_),
                                               [this] { return work_->ended; });
    lock.unlock();
    if (ended)
        thread_.join();
    else
        thread_.detach();
}

void preview_worker::ask(std::uint64_t number, std::vector<std::string> paths) {
    const std::lock_guard lock(work_->guard);
    work_->waiting = number;
    work_->paths = std::move(paths);
    work_->newest = number;
    work_->changed.notify_all();
}

void preview_worker::work::run() {
    std::unique_lock lock(guard);
    while (!ends) {
        if (waiting == 0) {
            changed.wait(lock);
            continue;
        }
        const std::uint64_t number = std::exchange(waiting, 0);
        const std::vector<std::string> asked = std::move(paths);
        lock.unlock();
        answer(number, asked);
        lock.lock();
    }
    ended = true;
    changed.notify_all();
}

void preview_worker::work::answer(std::uint64_t number, const std::vector<std::string>& asked) {
    const std::function<bool()> given_up = [this, number] { return ends || newest != number; };
    for (std::size_t side = 0; side < asked.size() && !given_up(); ++side) {
        preview_answer found;
        found.number = number;
        found.side = side;
        try {
            if (asked[side].empty())
                found.file.note = "程序自己的文件,不预览";
            else
                found.file = read_preview(files, *encodings, asked[side], given_up);
            if (found.file.access.known) found.owner = user_name(found.file.access.owner);
            if (!given_up()) decode(found, given_up);
            found.file.picture = {};
        } catch (const std::exception&) {
            // Memory: the file is shown by its name alone.
            found.file = {};
            found.file.note = "内存不够,不能预览";
        }
        // Under the lock: whoever takes the object away waits for a delivery that has begun.
        const std::lock_guard lock(guard);
        if (!given_up()) deliver(std::move(found));
    }
}

}  // namespace corvane
