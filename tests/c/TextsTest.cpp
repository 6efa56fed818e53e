#include <array>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "Objects.h"

namespace {

using kx::test::itemsOf;
using kx::test::Text;
using kx::test::TextList;
using kx::test::Units;

TEST(CText, IsEmptyAtFirst) {
    Text const text;
    EXPECT_EQ(text.str(), "");
    EXPECT_EQ(text.utf16(), u"");
}

TEST(CText, GivesUtf16ExactlyAndUtf8WithReplacements) {
    Text const text;
    Units const half(u"a\xd83d");
    ASSERT_EQ(kxjs_convert_utf16(half.data(), half.size(), text), KXJS_OK);
    EXPECT_EQ(text.utf16(), u"a\xd83d");
    EXPECT_EQ(text.str(), "a\uFFFD");
    ASSERT_EQ(kxjs_convert(KXJS_LITERAL("\U0001F600"), text), KXJS_OK);
    EXPECT_EQ(text.utf16(), u"\U0001F600");
    EXPECT_EQ(text.str(), "\U0001F600");
}

TEST(CTexts, AreJoinedWithOffsets) {
    TextList const list;
    EXPECT_EQ(itemsOf(list), std::vector<std::string>{});
    ASSERT_EQ(kxjs_texts_add(list, KXJS_LITERAL("\u00e4b")), KXJS_OK);
    ASSERT_EQ(kxjs_texts_add(list, nullptr, 0), KXJS_OK);
    Units const units(u"\u20ac\xdc00");
    ASSERT_EQ(kxjs_texts_add_utf16(list, units.data(), units.size()), KXJS_OK);
    EXPECT_EQ(itemsOf(list), (std::vector<std::string>{"\u00e4b", "", "\u20ac\uFFFD"}));
    std::uint16_t const* data = nullptr;
    std::size_t const* offsets = nullptr;
    std::size_t count = 0;
    ASSERT_EQ(kxjs_texts_utf16(list, &data, &offsets, &count), KXJS_OK);
    ASSERT_EQ(count, 3U);
    EXPECT_EQ(std::vector<std::size_t>(offsets, offsets + 4),
              (std::vector<std::size_t>{0, 2, 2, 4}));
    EXPECT_EQ(std::u16string(data, data + 4), u"\u00e4b\u20ac\xdc00");
}

TEST(CTexts, AreSeparatedByAUnitThatNoneContains) {
    TextList const list;
    std::uint16_t const* data = nullptr;
    std::size_t length = 1;
    ASSERT_EQ(kxjs_texts_separated_utf16(list, ';', &data, &length), KXJS_OK);
    EXPECT_NE(data, nullptr);
    EXPECT_EQ(length, 0U);
    for (char const* const item : {"a", "", "bc"}) {
        ASSERT_EQ(kxjs_texts_add(list, item, std::strlen(item)), KXJS_OK);
    }
    ASSERT_EQ(kxjs_texts_separated_utf16(list, ';', &data, &length), KXJS_OK);
    EXPECT_EQ(std::u16string(data, data + length), u"a;;bc");
    ASSERT_EQ(kxjs_texts_add(list, KXJS_LITERAL("d")), KXJS_OK);
    ASSERT_EQ(kxjs_texts_separated_utf16(list, 0, &data, &length), KXJS_OK);
    EXPECT_EQ(std::u16string(data, data + length), std::u16string(u"a\0\0bc\0d", 7));
    EXPECT_EQ(kxjs_texts_separated_utf16(list, 'c', &data, &length), KXJS_REFUSED);
    EXPECT_EQ(length, 7U);
}

TEST(CTexts, AreSetFromTheSameForm) {
    TextList const list;
    std::string const data = "onetwo";
    std::array<std::size_t, 4> const offsets = {0, 3, 3, 6};
    ASSERT_EQ(kxjs_texts_set(list, data.data(), offsets.data(), 3), KXJS_OK);
    EXPECT_EQ(itemsOf(list), (std::vector<std::string>{"one", "", "two"}));
    // Offsets may begin behind the start, as those of a part of a table do.
    ASSERT_EQ(kxjs_texts_set(list, data.data(), offsets.data() + 1, 2), KXJS_OK);
    EXPECT_EQ(itemsOf(list), (std::vector<std::string>{"", "two"}));
    Units const units(u"\u00e9x");
    std::array<std::size_t, 3> const wideOffsets = {0, 1, 2};
    ASSERT_EQ(kxjs_texts_set_utf16(list, units.data(), wideOffsets.data(), 2), KXJS_OK);
    EXPECT_EQ(itemsOf(list), (std::vector<std::string>{"\u00e9", "x"}));
    ASSERT_EQ(kxjs_texts_set(list, nullptr, nullptr, 0), KXJS_OK);
    EXPECT_EQ(itemsOf(list), std::vector<std::string>{});
}

TEST(CTexts, StayAsTheyAreWhereASetFails) {
    TextList const list;
    ASSERT_EQ(kxjs_texts_add(list, KXJS_LITERAL("kept")), KXJS_OK);
    std::string const bytes = "ab\xff";
    char const* const data = bytes.data();
    std::array<std::size_t, 2> const falling = {2, 1};
    std::array<std::size_t, 3> const invalid = {0, 2, 3};
    std::array<std::size_t, 2> const huge = {0, std::numeric_limits<std::size_t>::max()};
    EXPECT_EQ(kxjs_texts_set(list, data, falling.data(), 1), KXJS_BAD_ARGUMENT);
    EXPECT_EQ(kxjs_texts_set(list, data, invalid.data(), 2), KXJS_INVALID_UTF8);
    EXPECT_EQ(kxjs_texts_set(list, data, huge.data(), 1), KXJS_TOO_LONG);
    EXPECT_EQ(kxjs_texts_set(list, data, nullptr, 1), KXJS_NULL_ARGUMENT);
    EXPECT_EQ(kxjs_texts_set(list, nullptr, invalid.data(), 1), KXJS_NULL_ARGUMENT);
    EXPECT_EQ(kxjs_texts_set(list, data, invalid.data(), std::numeric_limits<std::size_t>::max()),
              KXJS_TOO_LONG);
    EXPECT_EQ(itemsOf(list), std::vector<std::string>{"kept"});
}

TEST(CStatus, EveryNumberHasAText) {
    for (kxjs_status const status :
         {0, 1, 2, 3, 4, 5, 6, 16, 17, 18, 19, 20, 21, 22, 32, 33, 34, 35}) {
        EXPECT_STRNE(kxjs_status_text(status), "unknown status") << status;
    }
    for (kxjs_status const status : {-1, 7, 36, INT32_MIN, INT32_MAX}) {
        EXPECT_STREQ(kxjs_status_text(status), "unknown status") << status;
    }
}

TEST(CVersion, IsThatOfTheHeader) {
    EXPECT_EQ(kxjs_version(), KXJS_VERSION_NUMBER);
    EXPECT_EQ(kxjs_version_text(), std::to_string(KXJS_VERSION_MAJOR) + "." +
                                       std::to_string(KXJS_VERSION_MINOR) + "." +
                                       std::to_string(KXJS_VERSION_PATCH));
}

}  // namespace
