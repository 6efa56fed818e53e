#pragma once

#include <string>
#include <vector>
#include <windows.h>

namespace test {

/// The names of the libraries that a loaded module imports from, in lower case.
std::vector<std::string> importedLibraries(HMODULE module);

/// Replaces a function that a loaded module imports, for that module only and until destroyed.
///
///     ImportHook failing(server.module(), "OLEAUT32.dll", "SysAllocString", &alwaysNull);
///
/// So the very file that ships is tested with failing allocations; it needs no hook of its own.
class ImportHook {
  public:
    /// Throws where the module does not import the function.
    ImportHook(HMODULE module, char const* library, char const* function, void* replacement);
    ~ImportHook();
    ImportHook(ImportHook const&) = delete;
    ImportHook& operator=(ImportHook const&) = delete;

    void* original() const { return original_; }

  private:
    void write(void* target);

    void** slot_;
    void* original_;
};

}  // namespace test
