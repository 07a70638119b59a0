// make_seeds DIRECTORY: writes the seeds of the fuzz targets to DIRECTORY/zip and DIRECTORY/rar.
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "tests/support/archive_images.h"

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("usage: make_seeds DIRECTORY\n", stderr);
        return 2;
    }
    const std::filesystem::path directory = arguments[1];
    for (const auto& [type, seeds] :
         {std::pair{"zip", corvane::zip_seeds()}, std::pair{"rar", corvane::rar_seeds()}}) {
        std::filesystem::create_directories(directory / type);
        for (const auto& [name, bytes] : seeds) {
            std::ofstream file(directory / type / name, std::ios::binary);
            file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
            if (!file.flush()) return 1;
        }
    }
    return 0;
}
