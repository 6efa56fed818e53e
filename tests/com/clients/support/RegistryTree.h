#pragma once

#include <map>
#include <string>
#include <vector>
#include <windows.h>

namespace test {

/// Keys and values below HKEY_CLASSES_ROOT: "clsid\{...}" -> "" for a key, "clsid\{...}\\name"
/// (two backslashes) -> "type:text" for a value, the default value without a name. Names are in
/// lower case, since the registry takes no notice of it.
using RegistryTree = std::map<std::wstring, std::wstring>;

/// Reads everything below `path`; the empty path is the whole root but for its mirror for 32-bit
/// programs.
RegistryTree readRegistry(std::wstring const& path);

/// The tree with its names in lower case.
RegistryTree lowerCase(RegistryTree const& tree);

/// Lines "+ entry = text", "- entry = text" that turn `before` into `after`.
std::vector<std::wstring> differences(RegistryTree const& before, RegistryTree const& after);

}  // namespace test
