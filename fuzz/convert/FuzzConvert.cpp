// Compares the converter with the naive one on generated input, pass by pass.
#include <cstdint>
#include <string>

#include "ConverterPasses.h"
#include "NaiveConverter.h"
#include "support/Check.h"
#include "support/Units.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    using kx::fuzz::checkEqual;
    using Pass = NaiveConverter::Pass;
    static NaiveConverter naive;
    std::u16string const text = kx::fuzz::textOf({reinterpret_cast<char const*>(data), size});
    checkEqual(ConverterPasses::operators(text), naive.apply(Pass::operators, text), "operators");
    checkEqual(ConverterPasses::math(text), naive.apply(Pass::math, text), "math");
    checkEqual(ConverterPasses::misc(text), naive.apply(Pass::misc, text), "misc");
    checkEqual(ConverterPasses::strings(text), naive.apply(Pass::strings, text), "strings");
    checkEqual(ConverterPasses::spelling(text), naive.apply(Pass::spelling, text), "spelling");
    std::u16string const formula = text.substr(0, text.find(u'\0'));
    checkEqual(Converter::_convert(formula.c_str()), naive.convert(formula), "convert");
    return 0;
}
