#include "library/KxJsFunction.h"

#include <algorithm>

#include "text/WhiteSpace.h"

namespace {

bool isLowerCaseLetter(char16_t unit) { return unit >= u'a' && unit <= u'z'; }

bool isFunctionName(std::u16string_view text) {
    return !text.empty() && std::none_of(text.begin(), text.end(), [](char16_t unit) {
        return isLowerCaseLetter(unit) || kx::isWhiteSpace(unit);
    });
}

bool isDocumentation(std::u16string_view text) {
    return !text.empty() && text.find(u'{') == std::u16string_view::npos;
}

}  // namespace

bool KxJsFunction::setName(std::u16string text) {
    if (!isFunctionName(text)) return false;
    name_ = std::move(text);
    return true;
}

bool KxJsFunction::setDescription(std::u16string text) {
    if (!isDocumentation(text)) return false;
    description_ = std::move(text);
    return true;
}

bool KxJsFunction::setReturnDescription(std::u16string text) {
    if (!isDocumentation(text)) return false;
    returnDescription_ = std::move(text);
    return true;
}

bool KxJsFunction::setBody(std::u16string text) {
    if (text.empty() || text.front() == u'{') return false;
    body_ = std::move(text);
    return true;
}

bool KxJsFunction::addParameter(Parameter parameter) {
    if (parameter.first.empty() || !isDocumentation(parameter.second)) return false;
    parameters_.push_back(std::move(parameter));
    return true;
}

bool KxJsFunction::addExample(std::u16string text) {
    if (!isDocumentation(text)) return false;
    examples_.push_back(std::move(text));
    return true;
}

void KxJsFunction::setCategory(std::u16string text) { category_ = std::move(text); }

bool KxJsFunction::isComplete() const {
    return !name_.empty() && !description_.empty() && !returnDescription_.empty() &&
           !body_.empty() && !examples_.empty();
}
