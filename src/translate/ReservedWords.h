#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace kx::translate {

/// The words that JavaScript reserves in scripts that are not strict.
inline constexpr auto kReservedWords = std::to_array<std::u16string_view>({
    u"break",  u"case",     u"catch",  u"class",  u"const",  u"continue",   u"debugger", u"default",
    u"delete", u"do",       u"else",   u"enum",   u"export", u"extends",    u"false",    u"finally",
    u"for",    u"function", u"if",     u"import", u"in",     u"instanceof", u"new",      u"null",
    u"return", u"super",    u"switch", u"this",   u"throw",  u"true",       u"try",      u"typeof",
    u"var",    u"void",     u"while",  u"with",
});

inline bool isReservedWord(std::u16string_view name) {
    return std::binary_search(kReservedWords.begin(), kReservedWords.end(), name);
}

}  // namespace kx::translate
