#pragma once

#include <string>
#include <vector>

#include "convert/Converter.h"
#include "library/KxJsFunction.h"

/// The single passes of the converter, each from text to text.
struct ConverterPasses {
    static std::u16string operators(std::u16string text) {
        Converter::_replaceUnaryOp(text);
        return text;
    }
    static std::u16string math(std::u16string text) {
        Converter::_replaceMathFunction(text);
        return text;
    }
    static std::u16string misc(std::u16string text) {
        Converter::_replaceMiscFunction(text);
        return text;
    }
    static std::u16string strings(std::u16string text) {
        Converter::_replaceStringFunction(text);
        return text;
    }
    static std::u16string spelling(std::u16string text) {
        Converter::_uppercaseAllFunctions(text);
        return text;
    }
    static std::u16string spellingOf(std::vector<KxJsFunction> catalogue, std::u16string text) {
        Converter::_uppercaseFunctions(text, catalogue);
        return text;
    }
    static std::u16string replaceOperator(std::u16string text, std::u16string const& op,
                                          std::u16string const& replacement) {
        Converter::_replaceOperator(text, op, replacement);
        return text;
    }
};
