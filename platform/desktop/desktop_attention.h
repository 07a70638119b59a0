// Wakefulness by logind, notifications and the launcher's progress over the session bus.
#pragma once

#include <memory>

#include "platform/attention.h"

namespace corvane {

class desktop_attention : public attention {
  public:
    desktop_attention();
    ~desktop_attention() override;
    desktop_attention(const desktop_attention&) = delete;
    desktop_attention& operator=(const desktop_attention&) = delete;

    std::unique_ptr<kept_awake> keep_awake(const std::string& reason) override;
    void show_progress(double share) override;
    void hide_progress() override;
    void notify(const std::string& title, const std::string& text, std::function<void()> on_click) override;

  private:
    class session;
    // The session's bus, asked for once; null without one.
    session* on_bus();

    bool asked_ = false;
    std::unique_ptr<session> session_;
};

}  // namespace corvane
