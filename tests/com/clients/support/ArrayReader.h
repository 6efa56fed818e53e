#pragma once

#include <optional>
#include <string>
#include <vector>
#include <windows.h>

namespace test {

/// The text at `indices`; nothing for a null element.
std::optional<std::wstring> element(VARIANT const& array, std::vector<LONG> indices);

/// Checks that the VARIANT is an array of BSTR with lower bounds 0 and these numbers of elements.
void checkShape(VARIANT const& array, std::vector<LONG> const& counts, char const* file, int line);

}  // namespace test

#define CHECK_SHAPE(array, ...) ::test::checkShape((array), {__VA_ARGS__}, __FILE__, __LINE__)
