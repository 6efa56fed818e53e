#include "doc/HtmlText.h"

namespace kx {

std::u16string withLineBreaks(std::u16string_view text) {
    constexpr std::u16string_view kLineEnd = u"\r\n";
    std::u16string converted;
    std::size_t begin = 0;
    for (std::size_t end = text.find(kLineEnd); end != std::u16string_view::npos;
         end = text.find(kLineEnd, begin)) {
        converted.append(text.substr(begin, end - begin)).append(u"<br/>");
        begin = end + kLineEnd.size();
    }
    return converted.append(text.substr(begin));
}

std::u16string joinParameterNames(KxJsFunction const& function, std::u16string_view separator) {
    std::u16string names;
    bool first = true;
    for (auto const& parameter : function.getParameters()) {
        if (!first) names += separator;
        first = false;
        names += parameter.first;
    }
    return names;
}

}  // namespace kx
