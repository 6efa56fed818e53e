#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace kx {

/// A text that replaces "{{name}}" in a template.
struct Placeholder {
    std::u16string_view name;
    std::u16string_view text;
};

/// Returns a template of HTML with its placeholders replaced:
///
///     fill(u"<b>{{name}}</b>", {{u"name", u"ROUND"}})   // <b>ROUND</b>
///
/// Two rules allow templates that are laid out like the HTML they produce. A line feed at the start
/// of the template is removed. A placeholder that is alone on its line replaces the line feed
/// behind it as well, so an empty text leaves no empty line.
///
/// Texts are inserted as they are, without a search for placeholders in them. A placeholder without
/// a text stays.
std::u16string fill(std::u16string_view html, std::initializer_list<Placeholder> placeholders);

}  // namespace kx
