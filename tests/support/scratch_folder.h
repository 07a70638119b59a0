// A folder of its own on the real disk for each test; it goes with the test.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <string>

namespace corvane {

class scratch_folder : public testing::Test {
  protected:
    scratch_folder() {
        std::string place = (std::filesystem::temp_directory_path() / "corvane_test_XXXXXX").string();
        const char* made = mkdtemp(place.data());
        EXPECT_NE(made, nullptr);
        root = place + "/";
    }
    ~scratch_folder() override { std::filesystem::remove_all(root); }

    std::string root;  // with its closing separator
};

}  // namespace corvane
