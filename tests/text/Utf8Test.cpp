#include <gtest/gtest.h>

#include "text/Utf8.h"

namespace {

TEST(SystemText, isUtf8OrAsciiWithReplacements) {
    EXPECT_EQ(kx::utf16FromSystem(""), u"");
    EXPECT_EQ(kx::utf16FromSystem("/opt/kxjs-worker"), u"/opt/kxjs-worker");
    EXPECT_EQ(kx::utf16FromSystem("/opt/w\u00f6rker/\U0001f600"), u"/opt/w\u00f6rker/\U0001f600");
    // Latin 1, and a character that is cut.
    EXPECT_EQ(kx::utf16FromSystem("w\xf6rker"), u"w\ufffdrker");
    EXPECT_EQ(kx::utf16FromSystem("a\xc3\xb6\xe2\x82"), u"a\ufffd\ufffd\ufffd\ufffd");
}

}  // namespace
