// The text of a listed file or archive member, cut into its parts.
#include "core/archives/archive_entry.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(FolderOf, AMemberIsWhereItsArchiveIs) {
    EXPECT_EQ(folder_of("/d/e/a", '/'), "/d/e/");
    EXPECT_EQ(folder_of("/d/z.zip*e/a", '/'), "/d/");
    EXPECT_EQ(folder_of("a", '/'), "");
}

}  // namespace
}  // namespace corvane
