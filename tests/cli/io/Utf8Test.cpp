// Bytes on standard input: kxjs returns a line of valid UTF-8 unchanged, and refuses any other with
// the position of the first malformed character.

#include <cstddef>
#include <gtest/gtest.h>
#include <ostream>
#include <string>

#include "Program.h"

namespace {

struct Bytes {
    char const* name;
    std::string bytes;
    std::size_t badByte;  ///< 0: the bytes are valid
};
void PrintTo(Bytes const& row, std::ostream* out) { *out << row.name; }

class Utf8 : public testing::TestWithParam<Bytes> {};

TEST_P(Utf8, IsCheckedStrictly) {
    std::string const line = "'" + GetParam().bytes + "'";
    Outcome const outcome = kxjs({"convert"}, line + "\n");
    if (GetParam().badByte == 0) {
        EXPECT_EQ(outcome.out, line + "\n");
        EXPECT_EQ(outcome.err, "");
        EXPECT_EQ(outcome.status, 0);
        return;
    }
    EXPECT_EQ(outcome.out, "");
    // Byte 1 is the quote.
    EXPECT_EQ(outcome.err, "kxjs: standard input, line 1: invalid UTF-8 at byte " +
                               std::to_string(GetParam().badByte + 1) + "\n");
    EXPECT_EQ(outcome.status, 2);
}

INSTANTIATE_TEST_SUITE_P(
    Input, Utf8,
    testing::Values(Bytes{"two_bytes_first", "\xC2\x80", 0},              // U+0080
                    Bytes{"two_bytes_last", "\xDF\xBF", 0},               // U+07FF
                    Bytes{"three_bytes_first", "\xE0\xA0\x80", 0},        // U+0800
                    Bytes{"before_surrogates", "\xED\x9F\xBF", 0},        // U+D7FF
                    Bytes{"behind_surrogates", "\xEE\x80\x80", 0},        // U+E000
                    Bytes{"three_bytes_last", "\xEF\xBF\xBF", 0},         // U+FFFF
                    Bytes{"four_bytes_first", "\xF0\x90\x80\x80", 0},     // U+10000
                    Bytes{"four_bytes_middle", "\xF1\x80\x80\x80", 0},    // U+40000
                    Bytes{"four_bytes_last", "\xF4\x8F\xBF\xBF", 0},      // U+10FFFF
                    Bytes{"replacement_character", "\xEF\xBF\xBD", 0},    // U+FFFD
                    Bytes{"lone_continuation", "\x80", 1},                //
                    Bytes{"lone_continuation_last", "\xBF", 1},           //
                    Bytes{"overlong_two_bytes", "\xC0\xAF", 1},           //
                    Bytes{"overlong_two_bytes_last", "\xC1\xBF", 1},      //
                    Bytes{"overlong_three_bytes", "\xE0\x9F\xBF", 1},     //
                    Bytes{"overlong_four_bytes", "\xF0\x8F\xBF\xBF", 1},  //
                    Bytes{"first_surrogate", "\xED\xA0\x80", 1},          //
                    Bytes{"last_surrogate", "\xED\xBF\xBF", 1},           //
                    Bytes{"beyond_unicode", "\xF4\x90\x80\x80", 1},       //
                    Bytes{"five_bytes", "\xF8\x88\x80\x80\x80", 1},       //
                    Bytes{"byte_fe", "\xFE", 1},                          //
                    Bytes{"byte_ff", "\xFF", 1},                          //
                    Bytes{"cut_two_bytes", "\xC3", 1},                    //
                    Bytes{"cut_three_bytes", "\xE2\x82", 1},              //
                    Bytes{"cut_four_bytes", "\xF0\x9F\x98", 1},           //
                    Bytes{"latin_1", "Gr\xFC\xDF", 3},                    //
                    Bytes{"behind_good_text", "a\xC3\xA9\xF0\x9F\x98\x80\xC3(", 8}),
    [](auto const& info) { return std::string(info.param.name); });

TEST(Utf8Input, ACharacterCutByTheEndOfTheInputIsRefused) {
    Outcome const outcome = kxjs({"convert"}, "A\xE2\x82");
    EXPECT_EQ(outcome.err, "kxjs: standard input, line 1: invalid UTF-8 at byte 2\n");
    EXPECT_EQ(outcome.status, 2);
}

TEST(Utf8Input, PositionsCountAByteOrderMark) {
    Outcome const outcome = kxjs({"convert"}, "\xEF\xBB\xBF\xFF");
    EXPECT_EQ(outcome.err, "kxjs: standard input, line 1: invalid UTF-8 at byte 4\n");
    EXPECT_EQ(outcome.status, 2);
}

}  // namespace
