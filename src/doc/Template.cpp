#include "doc/Template.h"

#include <algorithm>

namespace kx {
namespace {

constexpr std::u16string_view opening = u"{{";
constexpr std::u16string_view closing = u"}}";

}  // namespace

std::u16string fill(std::u16string_view html, std::initializer_list<Hole> holes) {
    if (html.starts_with(u'\n')) html.remove_prefix(1);

    std::u16string filled;
    std::size_t done = 0;  // what stands before is in `filled`
    for (std::size_t begin = html.find(opening); begin != std::u16string_view::npos;
         begin = html.find(opening, begin)) {
        std::size_t const nameBegin = begin + opening.size();
        std::size_t const nameEnd = html.find(closing, nameBegin);
        if (nameEnd == std::u16string_view::npos) break;
        std::size_t end = nameEnd + closing.size();

        auto const name = html.substr(nameBegin, nameEnd - nameBegin);
        auto const* const hole = std::find_if(holes.begin(), holes.end(),
                                              [&](Hole const& each) { return each.name == name; });
        if (hole != holes.end()) {
            filled.append(html.substr(done, begin - done)).append(hole->text);
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
