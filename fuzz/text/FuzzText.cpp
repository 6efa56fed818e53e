// Decodes input as UTF-8 and splits it into lines. Compares with the C library's decoder and with a
// simple split.
#include <algorithm>
#include <cstdint>
#include <iconv.h>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

#include "cli/io/LineReader.h"
#include "support/Check.h"
#include "support/Pieces.h"
#include "support/Units.h"
#include "text/Utf8.h"

namespace {

using kx::fuzz::check;
using kx::fuzz::checkEqual;

struct Decoded {
    std::u16string text;
    std::size_t valid;  ///< number of bytes before the first malformed character
};

Decoded decodedByLibrary(std::string_view bytes) {
    static iconv_t converter = iconv_open("UTF-16LE", "UTF-8");
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    std::u16string text(bytes.size() + 1, u'\0');
    char* in = const_cast<char*>(bytes.data());
    std::size_t inLeft = bytes.size();
    char* out = reinterpret_cast<char*>(text.data());
    std::size_t outLeft = text.size() * sizeof(char16_t);
    iconv(converter, &in, &inLeft, &out, &outLeft);
    text.resize(text.size() - outLeft / sizeof(char16_t));
    return {text, bytes.size() - inLeft};
}

void checkDecoding(std::string_view bytes) {
    Decoded const expected = decodedByLibrary(bytes);
    try {
        std::u16string const text = kx::utf16FromUtf8(bytes);
        check(expected.valid == bytes.size(), "malformed bytes were taken");
        checkEqual(text, expected.text, "decoded");
        check(kx::utf8FromUtf16(text) == bytes, "decoded and encoded");
    } catch (kx::InvalidUtf8 const& error) {
        check(error.position() == expected.valid + 1, "the place of the malformed character");
    }
}

void checkEncoding(std::u16string const& text) {
    auto const isHigh = [](char16_t unit) { return (unit & 0xfc00U) == 0xd800; };
    auto const isLow = [](char16_t unit) { return (unit & 0xfc00U) == 0xdc00; };
    std::u16string expected = text;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isHigh(text[i]) && i + 1 < text.size() && isLow(text[i + 1])) {
            ++i;
        } else if (isHigh(text[i]) || isLow(text[i])) {
            expected[i] = 0xfffd;
        }
    }
    checkEqual(kx::utf16FromUtf8(kx::utf8FromUtf16(text)), expected, "encoded and decoded");
}

std::vector<std::string> plainLines(std::string_view bytes) {
    std::vector<std::string> lines;
    while (!bytes.empty()) {
        std::string_view const whole = bytes.substr(0, bytes.find('\n'));
        bytes.remove_prefix(std::min(bytes.size(), whole.size() + 1));
        bool const hasCr = whole.ends_with('\r');
        lines.emplace_back(whole.substr(0, whole.size() - (hasCr ? 1 : 0)));
    }
    return lines;
}

void checkLines(std::string_view bytes, std::size_t piece) {
    std::vector<std::string> const expected = plainLines(bytes);
    int const descriptor = kx::fuzz::inPieces(bytes, piece);
    kx::LineReader reader(descriptor, [] {});
    std::string line;
    std::size_t count = 0;
    for (; reader.next(line); ++count) {
        check(count < expected.size() && line == expected[count], "a line");
        check(reader.lineNumber() == count + 1, "a line's number");
    }
    check(count == expected.size(), "the number of lines");
    check(!reader.next(line), "the end stays the end");
    close(descriptor);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size == 0) return 0;
    std::string_view const bytes(reinterpret_cast<char const*>(data) + 1, size - 1);
    checkDecoding(bytes);
    checkEncoding(kx::fuzz::textOf(bytes));
    checkEncoding(kx::fuzz::wideTextOf(bytes));
    checkLines(bytes, data[0] + std::size_t{1});
    return 0;
}
