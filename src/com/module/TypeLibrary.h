#pragma once

#include <windows.h>

namespace kx {

/// The type library inside this module. The caller releases it.
HRESULT ownTypeLibrary(ITypeLib** library);

/// The description of IKxJsParserX, read once and kept until releaseTypeInfo(). The caller
/// releases its own reference. Any thread may call.
HRESULT interfaceTypeInfo(ITypeInfo** info);

/// Releases the kept description; for the end of the module.
void releaseTypeInfo();

/// Enters the type library into the registry, with this module as its place.
HRESULT registerTypeLibrary();

/// Removes it again: for the current user where `perUser` is set and the system can do that.
HRESULT unregisterTypeLibrary(bool perUser);

}  // namespace kx
