#pragma once

#include <string_view>

#include "native/Functions.h"

namespace kx {

/// The functions of KxJsTranslator's run-time part, whose names are in lower case: "kx.add" and so
/// on. Values whose kinds do not fit, and dates, are left to V8.
///
/// Null for what is left to V8 altogether. `isExact` is the EXACT of the translation.
Function const* findRunTimeFunction(std::u16string_view name, bool isExact);

/// Whether calling the function has no effect but its result. Of all but RAND and TYPE.
bool isHarmlessRunTimeFunction(std::u16string_view name);

/// A comparison of texts as the older language has it: EXACT off, only as far as the right text
/// goes; EXACT on, all but the blanks at their ends. -1, 0 or 1.
int compareTexts(std::u16string_view left, std::u16string_view right, bool isExact);

/// The tables that findRunTimeFunction() searches, each in the order of names.
/// @{
std::span<Function const> runTimeOperators(bool isExact);
std::span<Function const> runTimeTextFunctions();
std::span<Function const> runTimeNumberFunctions();
std::span<Function const> runTimeValueFunctions(bool isExact);
/// @}

}  // namespace kx
