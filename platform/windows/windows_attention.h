// Keeps Windows awake during a long run. Progress in the task bar and notifications belong to a window, which
// this does not know: they show nothing.
#pragma once

#include "platform/attention.h"

namespace corvane {

class windows_attention : public attention {
  public:
    // Null where the system refuses it. `reason` is shown by powercfg /requests.
    std::unique_ptr<kept_awake> keep_awake(const std::string& reason) override;
    void show_progress(double) override {}
    void hide_progress() override {}
    void notify(const std::string&, const std::string&, std::function<void()>) override {}
};

}  // namespace corvane
