#include "tests/platform/desktop/own_session.h"

namespace corvane {

namespace {

auto* const environment =
    static_cast<own_session_environment*>(testing::AddGlobalTestEnvironment(new own_session_environment));

}  // namespace

own_session_environment& own_session() {
    return *environment;
}

}  // namespace corvane
