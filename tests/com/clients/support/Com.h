#pragma once

#include <string>
#include <utility>
#include <windows.h>

#include "KxJsParserLib.h"

namespace test {

/// Holds one reference to an interface.
template <class Interface>
class Pointer {
  public:
    Pointer() = default;
    explicit Pointer(Interface* owned) : _mPointer(owned) {}
    Pointer(Pointer&& other) noexcept : _mPointer(std::exchange(other._mPointer, nullptr)) {}
    Pointer& operator=(Pointer&& other) noexcept {
        std::swap(_mPointer, other._mPointer);
        return *this;
    }
    ~Pointer() { release(); }

    void release() {
        if (_mPointer != nullptr) std::exchange(_mPointer, nullptr)->Release();
    }
    Interface* get() const { return _mPointer; }
    Interface* operator->() const { return _mPointer; }
    explicit operator bool() const { return _mPointer != nullptr; }
    /// For functions that write a new reference.
    Interface** put() {
        release();
        return &_mPointer;
    }
    void** putVoid() { return reinterpret_cast<void**>(put()); }

  private:
    Interface* _mPointer = nullptr;
};

/// Owns a BSTR; may hold zeros, and may be null.
class Bstr {
  public:
    Bstr() = default;
    explicit Bstr(std::wstring const& text)
        : _mText(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    Bstr(Bstr&& other) noexcept : _mText(std::exchange(other._mText, nullptr)) {}
    Bstr& operator=(Bstr&&) = delete;
    ~Bstr() { SysFreeString(_mText); }

    BSTR get() const { return _mText; }
    operator BSTR() const { return _mText; }
    BSTR* put() {
        SysFreeString(std::exchange(_mText, nullptr));
        return &_mText;
    }
    bool isNull() const { return _mText == nullptr; }
    std::wstring text() const { return {_mText != nullptr ? _mText : L"", SysStringLen(_mText)}; }

  private:
    BSTR _mText = nullptr;
};

/// Owns what a VARIANT holds.
class Variant : public VARIANT {
  public:
    Variant() { VariantInit(this); }
    Variant(Variant const&) = delete;
    Variant& operator=(Variant const&) = delete;
    ~Variant() { VariantClear(this); }
};

/// A COM apartment of the calling thread.
class Apartment {
  public:
    explicit Apartment(DWORD model = COINIT_APARTMENTTHREADED) { CoInitializeEx(nullptr, model); }
    ~Apartment() { CoUninitialize(); }
    Apartment(Apartment const&) = delete;
    Apartment& operator=(Apartment const&) = delete;
};

using Parser = Pointer<IKxJsParserX>;

/// A parser by way of the registry, as clients make it. Throws where that fails.
Parser createParser();
/// The same with the built-in functions.
Parser createInitializedParser();

/// What a client gets from parse and execute, null texts told apart from empty ones.
struct Parsed {
    HRESULT outcome;
    Bstr error;
    LONG index;
};
struct Executed {
    HRESULT outcome;
    Bstr error;
    Bstr result;
};
Parsed parse(Parser const& parser, std::wstring const& source);
Executed execute(Parser const& parser, LONG index);
/// Parses and runs, and gives the result, or the error text in angle brackets.
std::wstring evaluate(Parser const& parser, std::wstring const& source);

}  // namespace test
