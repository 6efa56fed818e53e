#pragma once

#include <initializer_list>
#include <vector>

#include "library/KxJsFunction.h"

namespace kx {

struct ParameterRow {
    char16_t const* name;
    char16_t const* description;
};

/// The texts of one built-in function, as they stand in a catalogue's table.
///
/// Users have read these texts for years and formulas depend on the bodies, so a row is never
/// tidied up: misspellings, doubled blanks and copied descriptions stay as they are. Descriptions
/// and examples are ready for HTML, hence "&rarr;".
struct FunctionRow {
    char16_t const* name;
    std::initializer_list<ParameterRow> parameters;
    char16_t const* description;
    char16_t const* returns;
    char16_t const* body;
    std::initializer_list<char16_t const*> examples;
};

/// Tables are constants: they take no work at start-up and may be read by any thread.
using FunctionTable = std::initializer_list<FunctionRow>;

/// A new record with the texts of `row`, under the title `category`.
KxJsFunction buildRecord(char16_t const* category, FunctionRow const& row);

/// New records with the texts of `tables`, one table after the other, under the title `category`.
std::vector<KxJsFunction> buildRecords(char16_t const* category,
                                       std::initializer_list<FunctionTable> tables);

}  // namespace kx
