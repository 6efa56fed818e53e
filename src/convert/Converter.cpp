#include "convert/Converter.h"

#include "convert/OperatorReplacement.h"
#include "convert/Pipeline.h"
#include "library/KxJsFunction.h"

namespace {

template <class Pass>
void applyPass(Pass const& pass, std::u16string& text) {
    kx::Workspace work(text);
    pass.apply(work);
}

}  // namespace

std::u16string Converter::_convert(char16_t const* formula) {
    std::u16string text;
    if (formula == nullptr) return text;
    std::size_t const length = std::char_traits<char16_t>::length(formula);
    text.reserve(length + length / 2 + 32);  // replacements are mostly longer
    text.assign(formula, length);
    kx::Workspace work(text);
    kx::convert(work);
    return text;
}

void Converter::_replaceUnaryOp(std::u16string& text) { applyPass(kx::operatorPass(), text); }

void Converter::_replaceMathFunction(std::u16string& text) { applyPass(kx::mathPass(), text); }

void Converter::_replaceMiscFunction(std::u16string& text) { applyPass(kx::miscPass(), text); }

void Converter::_replaceStringFunction(std::u16string& text) { applyPass(kx::stringPass(), text); }

void Converter::_uppercaseAllFunctions(std::u16string& text) {
    applyPass(kx::spellingPass(), text);
}

void Converter::_uppercaseFunctions(std::u16string& text, std::vector<KxJsFunction>& catalogue) {
    applyPass(kx::FunctionPass(kx::spellingRules(catalogue)), text);
}

void Converter::_replaceOperator(std::u16string& text, std::u16string const& op,
                                 std::u16string const& replacement) {
    kx::Workspace work(text);
    kx::OperatorReplacement(work).apply(op, replacement);
}
