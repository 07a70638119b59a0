#include "console/records.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(Records, FieldsEscapeWhatWouldBreakALine) {
    std::string line;
    append_field(line, "a\tb\r\nc\\d");
    EXPECT_EQ(line, "a\\tb\\r\\nc\\\\d");
}

TEST(Records, ARecordIsOneLineOfTabbedFields) {
    std::FILE* const file = std::tmpfile();
    record_output output(file);
    output.record({"a", "", "c\td"});
    output.flush();
    std::rewind(file);
    char text[64] = {};
    const std::size_t count = std::fread(text, 1, sizeof text, file);
    std::fclose(file);
    EXPECT_EQ(std::string(text, count), "a\t\tc\\td\n");
}

}  // namespace
}  // namespace corvane
