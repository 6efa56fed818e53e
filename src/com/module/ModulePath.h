#pragma once

#include <memory>
#include <windows.h>

namespace kx {

using WideText = std::unique_ptr<wchar_t[]>;  // NOLINT(modernize-avoid-c-arrays)

/// The handle of this module, not of the program that loaded it.
HMODULE thisModule();

/// The full path of this module, of any length.
HRESULT modulePath(WideText& path);

/// The full path of the file `name` in this module's directory.
HRESULT fileBesideModule(wchar_t const* name, WideText& path);

/// `text` with every apostrophe doubled, as a quoted text of a registry script needs it.
HRESULT doubleApostrophes(wchar_t const* text, WideText& doubled);

}  // namespace kx
