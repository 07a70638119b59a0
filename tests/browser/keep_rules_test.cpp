#include "browser/keep_rules.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(NamedAsCopy, WhatSystemsAndUsersCallCopies) {
    for (const char* path :
         {"/d/a (1).txt", "/d/a(12).jpg", "/d/a - 副本.txt", "/d/副本 a.txt", "/d/Copy of a.txt",
          "/d/a - Copy.txt", "/d/a copy 2.txt", "/d/a_copy.txt", "/d/a - Kopie.txt", "/d/a - Kopie (2).txt",
          "/d/z.zip*in/a (3).txt", "/d/z.zip*in\\a - Copy.txt", "/d/a (1)", "/d/a (1) .txt"})
        EXPECT_TRUE(is_named_as_copy(path, '/')) << path;
}

TEST(NamedAsCopy, WhatOnlyLooksAlike) {
    for (const char* path : {"/d/copyright.txt", "/d/photocopy.txt", "/d/a (2019).txt", "/d/a ().txt",
                             "/d/a (b).txt", "/d (1)/a.txt", "/副本/a.txt", "/Copy of d/a.txt",
                             "/d/(1) a.txt", "/d/Kopien - Kopierer", "/d/a (1).zip*b.txt", "/d/)", ""})
        EXPECT_FALSE(is_named_as_copy(path, '/')) << path;
}

}  // namespace
}  // namespace corvane
