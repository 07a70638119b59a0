// Word between two starts on one program folder, over messages to a window that nobody sees.
#pragma once

#include <memory>

#include "platform/instance_link.h"

namespace corvane {

class windows_instance_link : public instance_link {
  public:
    windows_instance_link();
    ~windows_instance_link() override;
    windows_instance_link(const windows_instance_link&) = delete;
    windows_instance_link& operator=(const windows_instance_link&) = delete;

    void serve(const std::string& program_dir, instance_services services) override;
    bool raise_other(const std::string& program_dir) override;
    reception hand_over(const std::string& program_dir, const std::vector<std::string>& directories) override;

  private:
    class served_window;
    std::unique_ptr<served_window> served_;
};

}  // namespace corvane
