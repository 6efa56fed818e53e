#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace kx {

struct Hole {
    std::u16string_view name;
    std::u16string_view text;
};

/// Fills the holes of a template, a piece of HTML with names in doubled braces:
///
///     fill(u"<b>{{name}}</b>", {{u"name", u"ROUND"}})   // <b>ROUND</b>
///
/// So that templates can be laid out like the pages they make, the line feed that begins a
/// template is not part of it, and a hole with a line for itself takes the whole line: its text
/// brings its own line ends, or none where it is empty. Texts are written as they are, what looks
/// like a hole in them included. A hole that is not named stays visible.
std::u16string fill(std::u16string_view html, std::initializer_list<Hole> holes);

}  // namespace kx
