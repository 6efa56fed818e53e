#pragma once

#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "kxjsparser.h"

// Handles that free themselves, and texts as the tests compare them.

namespace kx::test {

template <class Handle, kxjs_status (*kCreate)(Handle**), kxjs_status (*kFree)(Handle*)>
class Owned {
  public:
    Owned() { EXPECT_EQ(kCreate(&handle_), KXJS_OK); }
    ~Owned() { EXPECT_EQ(kFree(handle_), KXJS_OK); }
    Owned(Owned const&) = delete;
    Owned& operator=(Owned const&) = delete;
    operator Handle*() const { return handle_; }
    /// For tests that free the object themselves.
    Handle* leave() {
        Handle* const handle = handle_;
        handle_ = nullptr;
        return handle;
    }

  private:
    Handle* handle_ = nullptr;
};

using Host = Owned<kxjs_host, kxjs_host_create, kxjs_host_free>;
using TextList = Owned<kxjs_texts, kxjs_texts_create, kxjs_texts_free>;
using Translator = Owned<kxjs_translator, kxjs_translator_create, kxjs_translator_free>;
using Findings = Owned<kxjs_findings, kxjs_findings_create, kxjs_findings_free>;

class Text : public Owned<kxjs_text, kxjs_text_create, kxjs_text_free> {
  public:
    std::string str() const {
        char const* data = nullptr;
        std::size_t length = 0;
        EXPECT_EQ(kxjs_text_utf8(*this, &data, &length), KXJS_OK);
        EXPECT_EQ(data[length], '\0');
        return {data, length};
    }
    std::u16string utf16() const {
        std::uint16_t const* data = nullptr;
        std::size_t length = 0;
        EXPECT_EQ(kxjs_text_utf16(*this, &data, &length), KXJS_OK);
        return {data, data + length};
    }
};

/// A number as a handle.
template <class Handle>
Handle* handleOf(std::uintptr_t number) {
    return reinterpret_cast<Handle*>(number);  // NOLINT(performance-no-int-to-ptr)
}

inline std::vector<std::string> itemsOf(kxjs_texts* list) {
    char const* data = nullptr;
    std::size_t const* offsets = nullptr;
    std::size_t count = 0;
    EXPECT_EQ(kxjs_texts_utf8(list, &data, &offsets, &count), KXJS_OK);
    std::vector<std::string> items;
    for (std::size_t i = 0; i < count; ++i) {
        items.emplace_back(data + offsets[i], data + offsets[i + 1]);
    }
    return items;
}

/// UTF-16 as the interface takes it.
class Units {
  public:
    explicit Units(std::u16string_view text) : units_(text.begin(), text.end()) {}
    std::uint16_t const* data() const { return units_.data(); }
    std::size_t size() const { return units_.size(); }

  private:
    std::vector<std::uint16_t> units_;
};

inline std::string evaluated(kxjs_host* host, std::string_view source) {
    Text const result;
    Text const error;
    kxjs_status const status =
        kxjs_host_evaluate(host, source.data(), source.size(), result, error);
    return status == KXJS_OK ? result.str() : std::to_string(status) + ": " + error.str();
}

}  // namespace kx::test
