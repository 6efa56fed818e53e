/// @file
/// Whether JavaScript that may be more than an expression compiles.
#pragma once

#include <string_view>
#include <variant>

#include "expression/Expression.h"
#include "expression/Parser.h"

namespace kx {

/// A script that compiles, and has no tree: it holds several statements, an array, an object, a
/// function of several parameters, an increment or an assignment to a call.
struct OtherScript {};

/// Like parseExpression(), for scripts that are not strict. What a tree holds is an expression; its
/// names may be "async", "await", "let" and "yield", its numbers octal. Still refused, though some
/// compile, are keywords of statements, "let[", "__proto__:", the directive "use strict", regular
/// expressions, templates, and statements that only a line end parts.
/// Errors: std::bad_alloc. Threads: any.
///
///     auto const parsed = kx::parseScript(u"[A,B]=C");
///     bool const compiles = !std::holds_alternative<kx::Refusal>(parsed);
std::variant<Expression, OtherScript, Refusal> parseScript(std::u16string_view source);

}  // namespace kx
