// Compares the converter with the naive one on whatever the fuzzer makes, pass by pass.
//
// Each byte is a code unit; bytes from 0x80 on stand for the units beyond ASCII that matter, so
// that the fuzzer's dictionary and its small steps reach everything.
#include <array>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

#include "ConverterPasses.h"
#include "NaiveConverter.h"

namespace {

std::u16string textOf(std::uint8_t const* data, std::size_t size) {
    static constexpr std::array<char16_t, 16> wide{
        u'\u00a0', u'\u1680', u'\u2000', u'\u200a', u'\u2028', u'\u2029', u'\u202f', u'\u205f',
        u'\u3000', u'\ufeff', u'\u180e', u'\u017f', u'\u212a', u'\u00e9', 0xd83d,    0xde00};
    std::u16string text;
    for (std::size_t i = 0; i < size; ++i)
        text += data[i] < 0x80 ? static_cast<char16_t>(data[i]) : wide[data[i] % wide.size()];
    return text;
}

void check(std::u16string const& result, std::u16string const& expected, char const* what) {
    if (result == expected) return;
    std::cerr << "different results: " << what << std::endl;
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    using Pass = NaiveConverter::Pass;
    static NaiveConverter naive;
    std::u16string const text = textOf(data, size);
    check(ConverterPasses::operators(text), naive.apply(Pass::operators, text), "operators");
    check(ConverterPasses::math(text), naive.apply(Pass::math, text), "math");
    check(ConverterPasses::misc(text), naive.apply(Pass::misc, text), "misc");
    check(ConverterPasses::strings(text), naive.apply(Pass::strings, text), "strings");
    check(ConverterPasses::spelling(text), naive.apply(Pass::spelling, text), "spelling");
    std::u16string const formula = text.c_str();  // ends at the first zero
    check(Converter::_convert(formula.c_str()), naive.convert(formula), "convert");
    return 0;
}
