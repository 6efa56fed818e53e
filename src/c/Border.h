#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include "c/HandleTable.h"
#include "c/Objects.h"
#include "c/kxjs_base.h"
#include "c/kxjs_host.h"
#include "text/Utf8.h"

// What every call does at the border between C and C++: check what comes in, and turn exceptions
// into status codes.

namespace kx::c {

/// Thrown to leave a call with a status.
struct Leave {
    kxjs_status status;
};

/// Runs a call. The only place where exceptions become status codes.
template <class Call>
kxjs_status guarded(Call&& call) noexcept {
    try {
        return std::forward<Call>(call)();
    } catch (Leave const& leave) {
        return leave.status;
    } catch (InvalidUtf8 const&) {
        return KXJS_INVALID_UTF8;
    } catch (std::length_error const&) {
        return KXJS_TOO_LONG;
    } catch (std::bad_alloc const&) {
        return KXJS_NO_MEMORY;
    } catch (std::system_error const&) {
        return KXJS_SYSTEM_ERROR;
    } catch (...) {
        return KXJS_INTERNAL_ERROR;
    }
}

inline void require(bool condition, kxjs_status otherwise) {
    if (!condition) throw Leave{otherwise};
}

/// An out-parameter that must be given.
template <class Value>
Value& out(Value* pointer) {
    require(pointer != nullptr, KXJS_NULL_ARGUMENT);
    return *pointer;
}

/// The object of a handle, for those that must outlive what the call lets the application do.
template <class Object, class Handle>
std::shared_ptr<Object> shared(Handle* handle) {
    require(handle != nullptr, KXJS_NULL_ARGUMENT);
    auto const* const found = findHandle(Object::kKind, reinterpret_cast<std::uint64_t>(handle));
    require(found != nullptr, KXJS_BAD_HANDLE);
    return std::static_pointer_cast<Object>(*found);
}

/// The object of a handle.
template <class Object, class Handle>
Object& object(Handle* handle) {
    require(handle != nullptr, KXJS_NULL_ARGUMENT);
    auto const* const found = findHandle(Object::kKind, reinterpret_cast<std::uint64_t>(handle));
    require(found != nullptr, KXJS_BAD_HANDLE);
    return *static_cast<Object*>(found->get());
}

/// The object of a handle that may be null.
template <class Object, class Handle>
Object* optional(Handle* handle) {
    return handle == nullptr ? nullptr : &object<Object>(handle);
}

template <class Handle, class Object>
kxjs_status create(Handle** handle, std::shared_ptr<Object> object) {
    static_assert(sizeof(Handle*) == sizeof(std::uint64_t), "handles are numbers of 64 bits");
    std::uint64_t const number = addHandle(Object::kKind, std::move(object));
    *handle = reinterpret_cast<Handle*>(number);  // NOLINT(performance-no-int-to-ptr)
    return KXJS_OK;
}

template <class Object, class Handle>
kxjs_status release(Handle* handle) {
    if (handle == nullptr) return KXJS_OK;
    auto const removed = removeHandle(Object::kKind, reinterpret_cast<std::uint64_t>(handle));
    return removed == nullptr ? KXJS_BAD_HANDLE : KXJS_OK;
}

template <class Unit>
void checkText(Unit const* data, std::size_t length) {
    require(length <= KXJS_MAX_LENGTH, KXJS_TOO_LONG);
    require(data != nullptr || length == 0, KXJS_NULL_ARGUMENT);
}

/// A text of the application: UTF-8 or UTF-16, as the type of its units says.
/// @{
inline std::u16string textOf(char const* data, std::size_t length) {
    checkText(data, length);
    return utf16FromUtf8({data, length});
}
inline std::u16string textOf(std::uint16_t const* data, std::size_t length) {
    checkText(data, length);
    std::u16string text(length, u'\0');
    if (length > 0) std::memcpy(text.data(), data, length * sizeof *data);
    return text;
}
/// @}

inline void setText(Text* text, std::u16string value) {
    if (text != nullptr) text->set(std::move(value));
}

/// More than any structure will grow to: a size above it is a mistake.
inline constexpr std::size_t kMostStructSize = 1024;

/// The size of a structure in the first version of the interface: what every application has.
template <class Struct>
inline constexpr std::size_t kFirstSize = sizeof(Struct);
template <>
inline constexpr std::size_t kFirstSize<kxjs_isolation> = offsetof(kxjs_isolation, shared_memory);

/// A structure of the application. Members that an older one lacks are 0. A newer one has to have 0
/// in the members that the library does not know.
template <class Struct>
Struct readStruct(Struct const& given) {
    std::size_t const size = given.struct_size;
    require(size >= kFirstSize<Struct> && size <= kMostStructSize, KXJS_BAD_ARGUMENT);
    auto const* const bytes = reinterpret_cast<unsigned char const*>(&given);
    for (std::size_t i = sizeof(Struct); i < size; ++i) require(bytes[i] == 0, KXJS_BAD_ARGUMENT);
    Struct value{};
    std::memcpy(&value, bytes, std::min(size, sizeof value));
    return value;
}

/// Fills as much of a structure as the application knows. Members that the library does not know
/// become 0.
template <class Struct>
void writeStruct(Struct& given, Struct value, std::size_t size) {
    value.struct_size = size;
    auto* const bytes = reinterpret_cast<unsigned char*>(&given);
    std::memset(bytes, 0, size);
    std::memcpy(bytes, &value, std::min(size, sizeof value));
}
template <class Struct>
std::size_t sizeOfStruct(Struct* given) {
    std::size_t const size = out(given).struct_size;
    require(size >= kFirstSize<Struct> && size <= kMostStructSize, KXJS_BAD_ARGUMENT);
    return size;
}

}  // namespace kx::c
