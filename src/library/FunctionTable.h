#pragma once

#include <initializer_list>
#include <vector>

#include "library/KxJsFunction.h"

namespace kx {

struct ParameterRow {
    char16_t const* name;
    char16_t const* description;
};

/// The texts of one built-in function, as a row of a catalogue's table.
///
/// Formulas depend on the bodies, and applications show the other texts. So nothing in a row is
/// corrected: misspellings, doubled blanks and copied descriptions stay. Descriptions and examples
/// are HTML, hence "&rarr;".
struct FunctionRow {
    char16_t const* name;
    std::initializer_list<ParameterRow> parameters;
    char16_t const* description;
    char16_t const* returns;
    char16_t const* body;
    std::initializer_list<char16_t const*> examples;
};

/// A table is a constant: it needs no work at start-up, and any thread may read it.
using FunctionTable = std::initializer_list<FunctionRow>;

/// Returns a new record with the texts of `row` and with the title `category`.
KxJsFunction buildRecord(char16_t const* category, FunctionRow const& row);

/// Returns new records with the texts of all `tables` in order and with the title `category`.
std::vector<KxJsFunction> buildRecords(char16_t const* category,
                                       std::initializer_list<FunctionTable> tables);

}  // namespace kx
