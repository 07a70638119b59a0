// Services of a desktop played by python-dbusmock on the tests' own bus, which stands for the system's bus,
// too.
#pragma once

#include <gio/gio.h>

#include <string>
#include <vector>

namespace corvane {

// A process of its own; it ends with the object.
class mock_service {
  public:
    // `arguments` of "python3 -m dbusmock"; the object is ready when `name` has an owner.
    mock_service(const std::string& name, const std::string& path, const std::string& interface,
                 const std::vector<std::string>& arguments);
    ~mock_service();
    mock_service(const mock_service&) = delete;
    mock_service& operator=(const mock_service&) = delete;

    // A method that returns what the code sets, in place of the one there was.
    void answer(const std::string& method, const std::string& takes, const std::string& gives,
                const std::string& code);
    // The calls since the last time, each "Method argument argument".
    std::vector<std::string> calls();
    // Calls a method of the object; null on failure, else to be released.
    GVariant* call(const std::string& interface, const std::string& method, GVariant* arguments);

  private:
    std::string name_;
    std::string path_;
    std::string interface_;
    GSubprocess* process_ = nullptr;
    GDBusConnection* bus_ = nullptr;
};

}  // namespace corvane
