#pragma once

#include <string>
#include <vector>
#include <windows.h>

namespace test {

/// One line for each method of an interface, in the order of its table:
///
///     4 parse(in BSTR strSource, out BSTR* pstrError, out retval LONG* plScriptIndex) "help"
std::vector<std::wstring> describeMethods(ITypeInfo* info);

/// One line "NAME = value" for each member of an enumeration.
std::vector<std::wstring> describeMembers(ITypeInfo* info);

std::wstring nameOf(ITypeInfo* info);

}  // namespace test
