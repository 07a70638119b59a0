// Starts of the program that speak to each other over the session bus, by a name made of the program folder.
#pragma once

#include <memory>

#include "platform/instance_link.h"

namespace corvane {

class desktop_instance_link : public instance_link {
  public:
    desktop_instance_link();
    ~desktop_instance_link() override;
    desktop_instance_link(const desktop_instance_link&) = delete;
    desktop_instance_link& operator=(const desktop_instance_link&) = delete;

    void serve(const std::string& program_dir, instance_services services) override;
    bool raise_other(const std::string& program_dir) override;
    reception hand_over(const std::string& program_dir, const std::vector<std::string>& directories) override;

  private:
    class served_name;
    std::unique_ptr<served_name> served_;
};

}  // namespace corvane
