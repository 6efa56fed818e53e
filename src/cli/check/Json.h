#pragma once

#include <string>
#include <string_view>

#include "translate/KxJsTranslator.h"

namespace kx {

/// Appends a text as a JSON string. Safe inside a script element of HTML.
void appendJson(std::string& json, std::u16string_view text);

/// The object of one formula: line, formula, verdict, javaScript, rewrite, findings.
std::string jsonOf(std::u16string const& formula, std::size_t line,
                   KxJsTranslator::Check const& check);

}  // namespace kx
