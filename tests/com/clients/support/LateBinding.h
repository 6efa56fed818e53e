#pragma once

#include <string>
#include <vector>
#include <windows.h>

#include "Com.h"

namespace test {

using Dispatch = Pointer<IDispatch>;

/// A parser as scripts see it.
Dispatch createLateParser();

/// The identifier of a method, or -1.
DISPID idOf(Dispatch const& object, std::wstring const& name);

/// Calls a method by name. The arguments are given in their written order and are not cleared.
HRESULT call(Dispatch const& object, std::wstring const& name, std::vector<VARIANT> arguments,
             VARIANT* result = nullptr);

/// Arguments. The caller owns what they point to.
VARIANT argument(BSTR text);
VARIANT argument(LONG number);
VARIANT argument(double number);
VARIANT argument(bool value);
VARIANT variableArgument(VARIANT& variable);  ///< as scripts pass a variable
VARIANT textReference(BSTR& text);            ///< as typed languages pass one

}  // namespace test
