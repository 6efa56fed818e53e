#pragma once

#include <windows.h>

#include "Registrar.h"

namespace kx {

/// Runs the script of the application identifier.
HRESULT updateApplicationRegistry(RegistryMode mode);

/// Runs the script of the class KxJsParserX.
HRESULT updateClassRegistry(RegistryMode mode);

/// Enters the type library, or removes it: for the current user alone where `perUser` is set.
HRESULT updateTypeLibraryRegistry(RegistryMode mode, bool perUser);

}  // namespace kx
