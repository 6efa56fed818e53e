#include <string_view>

#include "library/KxJsFunction.h"

namespace {

// The first statement of every generated function. It refuses a call without any argument if the
// function has parameters. The body deals with arguments that are missing at the end.
constexpr std::u16string_view kMissingArgumentGuard =
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

// The built-in LISTFUNCT splits this text: up to the first ")" it is the head of the function, from
// there to the first "{" the comment. Users see what it returns, so the layout and the line ends
// must stay as they are.
std::u16string KxJsFunction::toJavaScript() const {
    std::u16string text = u"function " + name_ + u"(" + formalParameters(parameters_) + u")\r\n";
    text += u"/**\r\n";
    text += u" * " + description_ + u"\r\n";
    for (auto const& parameter : parameters_) {
        text += u" * \\param " + parameter.first + u" " + parameter.second + u"\r\n";
    }
    text += u" * \\return " + returnDescription_ + u"\r\n";
    text += u" */{";
    text += kMissingArgumentGuard;
    text += body_ + u"}\n";
    return text;
}
