#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace kx {

/// Puts values behind one another, as MessageReader takes them.
class MessageWriter {
  public:
    void clear() { bytes_.clear(); }
    std::vector<std::byte> const& bytes() const { return bytes_; }

    template <class T>
    void put(T value) {
        static_assert(std::is_arithmetic_v<T> || std::is_enum_v<T>);
        append(&value, sizeof value);
    }
    void putText(std::u16string_view text) {
        put(static_cast<std::uint32_t>(text.size()));
        append(text.data(), text.size() * sizeof(char16_t));
    }

  private:
    void append(void const* data, std::size_t size) {
        auto const* const first = static_cast<std::byte const*>(data);
        bytes_.insert(bytes_.end(), first, first + size);
    }

    std::vector<std::byte> bytes_;
};

/// Takes values out of a message of another process. A value that is not there as a whole is 0 or
/// empty, and so are all after it; isRight() says so.
class MessageReader {
  public:
    /// `bytes` belong to the caller and may not change.
    explicit MessageReader(std::vector<std::byte> const& bytes)
        : next_(bytes.data()), left_(bytes.size()) {}

    template <class T>
    T take() {
        static_assert(std::is_arithmetic_v<T> && !std::is_same_v<T, bool>);
        T value{};
        takeBytes(&value, sizeof value);
        return value;
    }
    /// Any number but 0 and 1 is none.
    bool takeBool() { return takeUpTo<std::uint8_t>(1) == 1; }
    /// A number from 0 to `largest`.
    template <class T>
    T takeUpTo(T largest) {
        T const value = take<T>();
        if (value >= 0 && value <= largest) return value;
        refuse();
        return 0;
    }
    std::u16string takeText() {
        std::size_t const length = take<std::uint32_t>();
        if (length > left_ / sizeof(char16_t)) {
            refuse();
            return {};
        }
        std::u16string text(length, u'\0');
        takeBytes(text.data(), length * sizeof(char16_t));
        return text;
    }

    /// Calls the message wrong, for a reason that only the caller knows.
    void refuse() {
        isRight_ = false;
        left_ = 0;
    }

    bool hasMore() const { return left_ != 0; }
    /// Whether everything that was taken was there, and nothing is left.
    bool isRight() const { return isRight_ && left_ == 0; }

  private:
    void takeBytes(void* goal, std::size_t size) {
        if (size > left_) return refuse();
        if (size != 0) std::memcpy(goal, next_, size);
        next_ += size;
        left_ -= size;
    }
    std::byte const* next_;
    std::size_t left_;
    bool isRight_ = true;
};

}  // namespace kx
