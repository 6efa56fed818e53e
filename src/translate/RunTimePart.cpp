#include "translate/RunTimePart.h"

#include <string_view>

#include "translate/Functions.h"
#include "translate/RunTimeText.h"

namespace kx::translate {
namespace {

/// "kx.name = function (parameters) {body};" for every function of the catalogue. The names are
/// in lower case, so that no upper-case variable is taken for a part of one.
std::u16string catalogueText() {
    std::u16string text;
    for (LanguageFunction const* const function : languageFunctions()) {
        text += u"kx.";
        for (char16_t const unit : std::u16string_view(function->row.name)) {
            text += unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
        }
        text += u" = function (";
        bool isFirst = true;
        for (ParameterRow const& parameter : function->row.parameters) {
            if (!isFirst) text += u", ";
            text += parameter.name;
            isFirst = false;
        }
        text.append(u") {\n").append(function->row.body).append(u"\n};\n");
    }
    return text;
}

std::u16string makeScript() {
    std::u16string script(kRunTimeText);
    constexpr std::u16string_view kMark = u"@functions@";
    script.replace(script.find(kMark), kMark.size(), catalogueText());
    return script;
}

}  // namespace

std::u16string const& runTimePart() {
    static auto const& script = *new std::u16string(makeScript());
    return script;
}

bool isRunTimePart(std::u16string_view script) {
    // Most scripts begin otherwise, and the whole text need not be made for them.
    constexpr std::size_t kBeginning = 28;
    std::u16string_view const begin = std::u16string_view(kRunTimeText).substr(0, kBeginning);
    return script.starts_with(begin) && script == runTimePart();
}

}  // namespace kx::translate
