#include "ImportHook.h"

#include <cstring>
#include <stdexcept>
#include <string>

namespace test {

namespace {

template <class Part>
Part* at(HMODULE module, DWORD offset) {
    return reinterpret_cast<Part*>(reinterpret_cast<BYTE*>(module) + offset);
}

/// The descriptors of the libraries that a module imports from; the last one has no name.
IMAGE_IMPORT_DESCRIPTOR* importsOf(HMODULE module) {
    auto const* dos = at<IMAGE_DOS_HEADER>(module, 0);
    auto const* headers = at<IMAGE_NT_HEADERS>(module, static_cast<DWORD>(dos->e_lfanew));
    auto const& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    return at<IMAGE_IMPORT_DESCRIPTOR>(module, directory.VirtualAddress);
}

/// The place in the import address table that holds the function's address, or null.
void** findSlot(HMODULE module, char const* library, char const* function) {
    for (auto* import = importsOf(module); import->Name != 0; ++import) {
        if (lstrcmpiA(at<char>(module, import->Name), library) != 0) continue;
        auto* name = at<IMAGE_THUNK_DATA>(module, import->OriginalFirstThunk);
        auto* address = at<IMAGE_THUNK_DATA>(module, import->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++address) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
            auto* entry =
                at<IMAGE_IMPORT_BY_NAME>(module, static_cast<DWORD>(name->u1.AddressOfData));
            if (std::strcmp(reinterpret_cast<char const*>(entry->Name), function) == 0) {
                return reinterpret_cast<void**>(&address->u1.Function);
            }
        }
    }
    return nullptr;
}

}  // namespace

std::vector<std::string> importedLibraries(HMODULE module) {
    std::vector<std::string> names;
    for (auto* import = importsOf(module); import->Name != 0; ++import) {
        std::string name = at<char>(module, import->Name);
        CharLowerBuffA(name.data(), static_cast<DWORD>(name.size()));
        names.push_back(name);
    }
    return names;
}

ImportHook::ImportHook(HMODULE module, char const* library, char const* function, void* replacement)
    : slot_(findSlot(module, library, function)) {
    if (slot_ == nullptr) throw std::runtime_error(std::string("no import of ") + function);
    original_ = *slot_;
    write(replacement);
}

ImportHook::~ImportHook() { write(original_); }

void ImportHook::write(void* target) {
    DWORD protection = 0;
    VirtualProtect(slot_, sizeof *slot_, PAGE_READWRITE, &protection);
    *slot_ = target;
    VirtualProtect(slot_, sizeof *slot_, protection, &protection);
}

}  // namespace test
