#include "cli/formula/PlainText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kx {
namespace {

// All references and control characters that the catalogues contain. A terminal would obey a
// control character.
constexpr std::array<std::pair<std::u16string_view, std::u16string_view>, 5> kReplacements = {{
    {u"&gt;", u">"},
    {u"&lt;", u"<"},
    {u"&rarr;", u"\u2192"},
    {u"\n", u"\\n"},
    {u"\t", u"\\t"},
}};

}  // namespace

std::u16string plainTextFromHtml(std::u16string_view html) {
    std::u16string text;
    while (!html.empty()) {
        auto const found =
            std::find_if(kReplacements.begin(), kReplacements.end(),
                         [&](auto const& row) { return html.starts_with(row.first); });
        if (found == kReplacements.end()) {
            text += html.front();
            html.remove_prefix(1);
        } else {
            text += found->second;
            html.remove_prefix(found->first.size());
        }
    }
    return text;
}

}  // namespace kx
