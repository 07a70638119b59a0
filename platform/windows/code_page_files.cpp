#include "platform/windows/code_page_files.h"

#include <windows.h>

#include <cstddef>

#include "platform/windows/code_points.h"
#include "platform/windows/gb18030.h"
#include "platform/windows/windows_names.h"

namespace corvane {

namespace {

class code_page_files : public data_encoding {
  public:
    void append_bytes(std::string& out, std::string_view text) const override {
        const std::wstring units = wide(text);
        std::string bytes(units.size() * 4, '\0');
        const int count =
            WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, units.data(), static_cast<int>(units.size()),
                                bytes.data(), static_cast<int>(bytes.size()), "?", nullptr);
        out.append(bytes, 0, static_cast<std::size_t>(count));
    }
    void append_text(std::string& out, std::string_view bytes) const override {
        std::wstring units(bytes.size(), L'\0');
        const int count = MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()),
                                              units.data(), static_cast<int>(units.size()));
        out += narrow(std::wstring_view(units).substr(0, static_cast<std::size_t>(count)));
    }
};

}  // namespace

const data_encoding* own_data_encoding() {
    static const gb18030_files chinese;
    static const code_page_files others;
    switch (GetACP()) {
        case 936:
        case 54936:
            return &chinese;
        case CP_UTF8:
            return nullptr;
        default:
            return &others;
    }
}

}  // namespace corvane
