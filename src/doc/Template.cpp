#include "doc/Template.h"

#include <algorithm>

namespace kx {
namespace {

constexpr std::u16string_view kOpening = u"{{";
constexpr std::u16string_view kClosing = u"}}";

}  // namespace

std::u16string fill(std::u16string_view html, std::initializer_list<Placeholder> placeholders) {
    if (html.starts_with(u'\n')) html.remove_prefix(1);

    std::u16string filled;
    std::size_t done = 0;  // the template up to here is in `filled`
    for (std::size_t begin = html.find(kOpening); begin != std::u16string_view::npos;
         begin = html.find(kOpening, begin)) {
        std::size_t const nameBegin = begin + kOpening.size();
        std::size_t const nameEnd = html.find(kClosing, nameBegin);
        if (nameEnd == std::u16string_view::npos) break;
        std::size_t end = nameEnd + kClosing.size();

        auto const name = html.substr(nameBegin, nameEnd - nameBegin);
        auto const* const found =
            std::find_if(placeholders.begin(), placeholders.end(),
                         [&](Placeholder const& each) { return each.name == name; });
        if (found != placeholders.end()) {
            filled.append(html.substr(done, begin - done)).append(found->text);
            bool const atLineStart = begin == 0 || html[begin - 1] == u'\n';
            bool const atLineEnd = end < html.size() && html[end] == u'\n';
            if (atLineStart && atLineEnd) ++end;
            done = end;
        }
        begin = end;
    }
    return filled.append(html.substr(done));
}

}  // namespace kx
