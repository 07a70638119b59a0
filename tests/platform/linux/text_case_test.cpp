// Case folding held against the C library of this system.
#include "core/text/text_case.h"

#include <gtest/gtest.h>
#include <locale.h>
#include <wctype.h>

namespace corvane {
namespace {

TEST(text_case, all_letters_agree_with_the_c_library) {
    const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t{});
    ASSERT_NE(locale, locale_t{}) << "there is no locale C.UTF-8";
    for (char32_t letter = 0; letter < 0x110000; ++letter) {
        const auto expected = static_cast<char32_t>(towupper_l(static_cast<wint_t>(letter), locale));
        EXPECT_EQ(upper_case(letter), expected) << std::hex << static_cast<unsigned>(letter);
    }
    freelocale(locale);
}

}  // namespace
}  // namespace corvane
