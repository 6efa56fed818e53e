#include <string_view>

#include "library/KxJsFunction.h"

namespace {

// Stands first in every generated function. It refuses a call without any argument where the
// function declares parameters; parameters missing at the end are left to the body.
constexpr std::u16string_view missingArgumentGuard =
    u"if(arguments.length == 0 && arguments.callee.length != 0) "
    u"throw ReferenceError(arguments.callee.name + ' missing argument');\r\n";

std::u16string formalParameters(std::vector<KxJsFunction::Parameter> const& parameters) {
    std::u16string list;
    for (auto const& [name, description] : parameters) {
        if (!list.empty()) list += u", ";
        list += name;
    }
    return list;
}

}  // namespace

// LISTFUNCT takes the declaration apart again when formulas call it: everything up to the first
// ")" is the head, everything from there to the first "{" the comment. Its output is what users
// see, so this layout stays as it is, down to the kind of line ends.
std::u16string KxJsFunction::toJavaScript() const {
    std::u16string text = u"function " + name + u"(" + formalParameters(parameters) + u")\r\n";
    text += u"/**\r\n";
    text += u" * " + description + u"\r\n";
    for (auto const& parameter : parameters) {
        text += u" * \\param " + parameter.first + u" " + parameter.second + u"\r\n";
    }
    text += u" * \\return " + returnDescription + u"\r\n";
    text += u" */{";
    text += missingArgumentGuard;
    text += body + u"}\n";
    return text;
}
