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
    explicit Pointer(Interface* owned) : pointer_(owned) {}
    Pointer(Pointer&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    Pointer& operator=(Pointer&& other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~Pointer() { release(); }

    void release() {
        if (pointer_ != nullptr) std::exchange(pointer_, nullptr)->Release();
    }
    Interface* get() const { return pointer_; }
    Interface* operator->() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }
    /// For functions that write a new reference.
    Interface** put() {
        release();
        return &pointer_;
    }
    void** putVoid() { return reinterpret_cast<void**>(put()); }

  private:
    Interface* pointer_ = nullptr;
};

/// Owns a BSTR; may hold zeros, and may be null.
class Bstr {
  public:
    Bstr() = default;
    explicit Bstr(std::wstring const& text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    Bstr& operator=(Bstr&&) = delete;
    ~Bstr() { SysFreeString(text_); }

    BSTR get() const { return text_; }
    operator BSTR() const { return text_; }
    BSTR* put() {
        SysFreeString(std::exchange(text_, nullptr));
        return &text_;
    }
    bool isNull() const { return text_ == nullptr; }
    std::wstring text() const { return {text_ != nullptr ? text_ : L"", SysStringLen(text_)}; }

  private:
    BSTR text_ = nullptr;
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
