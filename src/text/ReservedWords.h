#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace kx {

/// What a reserved word of JavaScript is where an operand may stand.
enum class WordUse : std::uint8_t { literal, unary, statement, function, other };

struct ReservedWord {
    std::u16string_view text;
    WordUse use;
    /// A name in scripts that are not strict, outside of functions where it is a keyword.
    bool mayBeVariable = false;
};

/// In the order of their code units.
inline constexpr auto kReservedWords = std::to_array<ReservedWord>({
    {u"await", WordUse::other, true},  {u"break", WordUse::statement},
    {u"case", WordUse::statement},     {u"catch", WordUse::statement},
    {u"class", WordUse::statement},    {u"const", WordUse::statement},
    {u"continue", WordUse::statement}, {u"debugger", WordUse::statement},
    {u"default", WordUse::statement},  {u"delete", WordUse::other},
    {u"do", WordUse::statement},       {u"else", WordUse::statement},
    {u"enum", WordUse::other},         {u"export", WordUse::statement},
    {u"extends", WordUse::other},      {u"false", WordUse::literal},
    {u"finally", WordUse::statement},  {u"for", WordUse::statement},
    {u"function", WordUse::function},  {u"if", WordUse::statement},
    {u"import", WordUse::statement},   {u"in", WordUse::other},
    {u"instanceof", WordUse::other},   {u"let", WordUse::statement, true},
    {u"new", WordUse::other},          {u"null", WordUse::literal},
    {u"return", WordUse::statement},   {u"super", WordUse::other},
    {u"switch", WordUse::statement},   {u"this", WordUse::other},
    {u"throw", WordUse::statement},    {u"true", WordUse::literal},
    {u"try", WordUse::statement},      {u"typeof", WordUse::unary},
    {u"var", WordUse::statement},      {u"void", WordUse::unary},
    {u"while", WordUse::statement},    {u"with", WordUse::statement},
    {u"yield", WordUse::other, true},
});

/// Null for a word that is none of them.
constexpr ReservedWord const* findReservedWord(std::u16string_view word) {
    // Reserved words begin with a small letter, most names of formulas with a capital.
    if (word.empty() || word.front() < u'a') return nullptr;
    auto const found = std::lower_bound(
        kReservedWords.begin(), kReservedWords.end(), word,
        [](ReservedWord const& known, std::u16string_view text) { return known.text < text; });
    return found != kReservedWords.end() && found->text == word ? &*found : nullptr;
}

/// Whether no variable of a script that is not strict may have the name.
constexpr bool isReservedWord(std::u16string_view name) {
    ReservedWord const* const word = findReservedWord(name);
    return word != nullptr && !word->mayBeVariable;
}

}  // namespace kx
