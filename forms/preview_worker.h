// Reads and decodes for the preview on a thread of its own, the newest question first. Used by preview_pane.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "browser/file_preview.h"
#include "forms/preview_picture.h"

namespace corvane {

struct preview_answer {
    std::uint64_t number = 0;  // of the question
    std::size_t side = 0;
    file_preview file;
    decoded_picture picture;  // where the file is one
    std::string owner;
};

class preview_worker {
  public:
    // `deliver` is called on the worker's thread, and never after the object's end. The disk outlives the
    // object and may be asked from any thread.
    preview_worker(file_system& files, std::function<void(preview_answer)> deliver,
                   int patience_milliseconds = 2000);
    // Waits for the step in work, but not longer than the patience: a disk that does not answer keeps the
    // thread, not the program, and what the thread comes back to ends it.
    ~preview_worker();
    preview_worker(const preview_worker&) = delete;
    preview_worker& operator=(const preview_worker&) = delete;

    // Takes the place of a question that waits; one in work is given up between two reads. An answer a path;
    // of an empty one it says that the program keeps the file for itself.
    void ask(std::uint64_t number, std::vector<std::string> paths);

  private:
    struct work;
    const int patience_milliseconds_;
    std::shared_ptr<work> work_;
    std::thread thread_;
};

}  // namespace corvane
