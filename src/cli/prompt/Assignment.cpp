#include "cli/prompt/Assignment.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <string_view>

#include "cli/formula/VariableOption.h"
#include "text/NameUnits.h"
#include "text/Utf8.h"
#include "text/WhiteSpace.h"

namespace kx {
std::optional<Assignment> assignmentFrom(std::u16string const& line) {
    std::size_t const equals = line.find(u'=');
    if (equals == std::u16string::npos) return std::nullopt;
    std::u16string_view const text = line;
    std::u16string_view const name = withoutOuterSpace(text.substr(0, equals));
    std::u16string_view const behind = text.substr(equals + 1);
    if (!mayBeName(name) || withoutOuterSpace(behind).empty()) return std::nullopt;
    if (behind.front() == u'=' || behind.front() == u'>' || behind.front() == u'<') {
        return std::nullopt;
    }
    return Assignment{std::u16string(name), std::u16string(withoutOuterSpace(behind))};
}

std::optional<KxJsVariable> literalVariable(Assignment const& assignment) {
    auto const& [name, value] = assignment;
    char16_t const quote = value.front();
    if ((quote == u'\'' || quote == u'"') && value.size() > 1) {
        bool const isOneText =
            value.find(quote, 1) == value.size() - 1 && value.find(u'\\') == std::u16string::npos;
        if (!isOneText) return std::nullopt;
        return KxJsVariable(name, value.substr(1, value.size() - 2));
    }
    KxJsVariable const guessed =
        parseVariable(VariableOption::guessed, utf8FromUtf16(name) + "=" + utf8FromUtf16(value));
    if (guessed.getType() == KxJsVariable::TYPE_OF_VAR_STRING) return std::nullopt;
    return guessed;
}

namespace {

/// All digits of the number. The library's own text of a double has six decimals only.
std::u16string shortestText(double number) {
    std::array<char, 32> buffer;
    auto const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
    return {buffer.data(), end};
}

std::u16string valueText(KxJsVariable const& variable) {
    switch (variable.getType()) {
        case KxJsVariable::TYPE_OF_VAR_STRING:
            return u"'" + variable.getStrValue() + u"'";
        case KxJsVariable::TYPE_OF_VAR_DOUBLE:
            return shortestText(variable.getDoubleValue());
        default:
            return variable.valueToString();
    }
}

}  // namespace

std::u16string describeVariable(KxJsVariable const& variable) {
    constexpr std::array<std::u16string_view, 5> kTypes = {u"undefined", u"long", u"double",
                                                           u"string", u"boolean"};
    return variable.getKey() + u" = " + valueText(variable) + u" (" +
           std::u16string(kTypes.at(static_cast<std::size_t>(variable.getType()))) + u")";
}

}  // namespace kx
