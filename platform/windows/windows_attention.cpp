#include "platform/windows/windows_attention.h"

#include <windows.h>

#include <utility>

#include "platform/windows/handle.h"
#include "platform/windows/windows_names.h"

namespace corvane {

namespace {

class windows_awake : public kept_awake {
  public:
    explicit windows_awake(handle request) : request_(std::move(request)) {}
    ~windows_awake() override { PowerClearRequest(request_.get(), PowerRequestSystemRequired); }

  private:
    handle request_;
};

// Without the power requests of this Windows: as long as this thread says so.
class thread_awake : public kept_awake {
  public:
    ~thread_awake() override { SetThreadExecutionState(ES_CONTINUOUS); }
};

}  // namespace

std::unique_ptr<kept_awake> windows_attention::keep_awake(const std::string& reason) {
    std::wstring words = wide(reason);
    REASON_CONTEXT context{};
    context.Version = POWER_REQUEST_CONTEXT_VERSION;
    context.Flags = POWER_REQUEST_CONTEXT_SIMPLE_STRING;
    context.Reason.SimpleReasonString = words.data();
    handle request(PowerCreateRequest(&context));
    if (request && PowerSetRequest(request.get(), PowerRequestSystemRequired))
        return std::make_unique<windows_awake>(std::move(request));
    if (SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED) == 0) return nullptr;
    return std::make_unique<thread_awake>();
}

}  // namespace corvane
