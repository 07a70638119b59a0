#include "browser/file_date.h"

#include "core/model/main_form.h"
#include "platform/file_time.h"

namespace corvane {

local_time file_date(Tavrel& form, const file_facts& facts) {
    return form.outside.screen.local_date(to_unix_seconds({facts.date_high, facts.date_low}));
}

}  // namespace corvane
