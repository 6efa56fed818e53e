#pragma once

#include <windows.h>

#include "KxJsParserLib.h"

namespace kx {

/// Calls the method `id` of `object` as `info` describes it.
///
/// Script languages pass a variable for an outgoing error text as a reference to a VARIANT, which
/// the type library's own Invoke refuses with a type mismatch. Here the variable receives the
/// text, so that scripts can read why a call failed; its old value is kept if the call fails.
HRESULT invoke(ITypeInfo& info, IKxJsParserX& object, DISPID id, WORD flags, DISPPARAMS* parameters,
               VARIANT* result, EXCEPINFO* exception, UINT* badArgument);

}  // namespace kx
