#include "ModulePath.h"

#include <cwchar>
#include <new>

// The linker puts this name at the start of the module; its address is the module's handle.
extern "C" IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier)

namespace kx {

namespace {

constexpr DWORD longestPath = 32768;  // the limit of the system's long paths

}  // namespace

HMODULE thisModule() { return reinterpret_cast<HMODULE>(&__ImageBase); }

HRESULT modulePath(WideText& path) {
    for (DWORD size = MAX_PATH; size <= 2 * longestPath; size *= 2) {
        path.reset(new (std::nothrow) wchar_t[size]);
        if (!path) return E_OUTOFMEMORY;
        DWORD const length = GetModuleFileNameW(thisModule(), path.get(), size);
        if (length == 0) return HRESULT_FROM_WIN32(GetLastError());
        if (length < size) return S_OK;
    }
    return HRESULT_FROM_WIN32(ERROR_FILENAME_EXCED_RANGE);
}

HRESULT fileBesideModule(wchar_t const* name, WideText& path) {
    WideText module;
    HRESULT const found = modulePath(module);
    if (FAILED(found)) return found;
    wchar_t const* const separator = std::wcsrchr(module.get(), L'\\');
    std::size_t const directory =
        separator != nullptr ? static_cast<std::size_t>(separator + 1 - module.get()) : 0;
    std::size_t const nameSize = std::wcslen(name) + 1;
    path.reset(new (std::nothrow) wchar_t[directory + nameSize]);
    if (!path) return E_OUTOFMEMORY;
    std::wmemcpy(path.get(), module.get(), directory);
    std::wmemcpy(path.get() + directory, name, nameSize);
    return S_OK;
}

HRESULT doubleApostrophes(wchar_t const* text, WideText& doubled) {
    doubled.reset(new (std::nothrow) wchar_t[2 * std::wcslen(text) + 1]);
    if (!doubled) return E_OUTOFMEMORY;
    wchar_t* end = doubled.get();
    for (wchar_t const* next = text; *next != L'\0'; ++next) {
        if (*next == L'\'') *end++ = L'\'';
        *end++ = *next;
    }
    *end = L'\0';
    return S_OK;
}

}  // namespace kx
