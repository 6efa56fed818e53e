#include "c/Border.h"
#include "c/kxjs_text.h"

namespace kx::c {

std::string const& Text::utf8() {
    if (!hasUtf8_) utf8_ = utf8FromUtf16(utf16_);
    hasUtf8_ = true;
    return utf8_;
}

Texts::Reading::Reading(std::shared_ptr<Texts> texts) : texts_(std::move(texts)) {
    require(!texts_->isWritten_, KXJS_BUSY);
    ++texts_->readers_;
}

Texts::Writing::Writing(std::shared_ptr<Texts> texts) : texts_(std::move(texts)) {
    require(!texts_->isWritten_ && texts_->readers_ == 0, KXJS_BUSY);
    texts_->isWritten_ = true;
}

Texts::Joined& Texts::change() {
    require(!isWritten_ && readers_ == 0, KXJS_BUSY);
    utf8_ = {};
    separated_ = {};
    return items_;
}

void Texts::set(std::vector<std::u16string> const& items) {
    Joined joined;
    for (std::u16string const& item : items) joined.add(item);
    change() = std::move(joined);
}

Texts::Joined const& Texts::utf16() const {
    require(!isWritten_, KXJS_BUSY);
    return items_;
}

Texts::Utf8 const& Texts::utf8() {
    require(!isWritten_, KXJS_BUSY);
    if (!utf8_.offsets.empty()) return utf8_;
    Utf8 made{{}, {0}};
    made.offsets.reserve(items_.offsets.size());
    for (std::size_t i = 0; i < items_.size(); ++i) {
        made.data += utf8FromUtf16(items_[i]);
        made.offsets.push_back(made.data.size());
    }
    return utf8_ = std::move(made);
}

std::u16string const* Texts::separated(char16_t separator) {
    require(!isWritten_, KXJS_BUSY);
    if (items_.data.find(separator) != std::u16string::npos) return nullptr;
    separated_.clear();
    separated_.reserve(items_.data.size() + items_.size());
    for (std::size_t i = 0; i < items_.size(); ++i) {
        if (i > 0) separated_ += separator;
        separated_ += items_[i];
    }
    return &separated_;
}

namespace {

template <class Unit, class Joined>
kxjs_status lend(Joined const& joined, Unit const** data, std::size_t const** offsets,
                 std::size_t* count) {
    out(data) = reinterpret_cast<Unit const*>(joined.data.c_str());
    out(offsets) = joined.offsets.data();
    out(count) = joined.offsets.size() - 1;
    return KXJS_OK;
}

template <class Unit>
kxjs_status set(kxjs_texts* handle, Unit const* data, std::size_t const* offsets,
                std::size_t count) {
    return guarded([&] {
        auto& list = object<Texts>(handle);
        Texts::Joined items;
        require(count < items.offsets.max_size(), KXJS_TOO_LONG);
        require(offsets != nullptr || count == 0, KXJS_NULL_ARGUMENT);
        items.offsets.reserve(count + 1);
        for (std::size_t i = 0; i < count; ++i) {
            require(offsets[i] <= offsets[i + 1], KXJS_BAD_ARGUMENT);
            std::size_t const length = offsets[i + 1] - offsets[i];
            items.add(textOf(data == nullptr ? nullptr : data + offsets[i], length));
        }
        list.change() = std::move(items);
        return KXJS_OK;
    });
}

template <class Unit>
kxjs_status add(kxjs_texts* handle, Unit const* data, std::size_t length) {
    return guarded([&] {
        auto& list = object<Texts>(handle);
        std::u16string const text = textOf(data, length);
        list.change().add(text);
        return KXJS_OK;
    });
}

}  // namespace
}  // namespace kx::c

using namespace kx::c;  // NOLINT(google-build-using-namespace)

extern "C" {

kxjs_status kxjs_text_create(kxjs_text** text) {
    return guarded([&] { return create(&out(text), std::make_shared<Text>()); });
}

kxjs_status kxjs_text_free(kxjs_text* text) {
    return guarded([&] { return release<Text>(text); });
}

kxjs_status kxjs_text_utf8(kxjs_text* text, char const** data, size_t* length) {
    return guarded([&] {
        std::string const& utf8 = object<Text>(text).utf8();
        out(data) = utf8.c_str();
        if (length != nullptr) *length = utf8.size();
        return KXJS_OK;
    });
}

kxjs_status kxjs_text_utf16(kxjs_text* text, uint16_t const** data, size_t* length) {
    return guarded([&] {
        std::u16string const& utf16 = object<Text>(text).utf16();
        out(data) = reinterpret_cast<uint16_t const*>(utf16.c_str());
        if (length != nullptr) *length = utf16.size();
        return KXJS_OK;
    });
}

kxjs_status kxjs_texts_create(kxjs_texts** texts) {
    return guarded([&] { return create(&out(texts), std::make_shared<Texts>()); });
}

kxjs_status kxjs_texts_free(kxjs_texts* texts) {
    return guarded([&] { return release<Texts>(texts); });
}

kxjs_status kxjs_texts_utf8(kxjs_texts* texts, char const** data, size_t const** offsets,
                            size_t* count) {
    return guarded([&] { return lend(object<Texts>(texts).utf8(), data, offsets, count); });
}

kxjs_status kxjs_texts_utf16(kxjs_texts* texts, uint16_t const** data, size_t const** offsets,
                             size_t* count) {
    return guarded([&] { return lend(object<Texts>(texts).utf16(), data, offsets, count); });
}

kxjs_status kxjs_texts_separated_utf16(kxjs_texts* texts, uint16_t separator, uint16_t const** data,
                                       size_t* length) {
    return guarded([&] {
        std::u16string const* const text = object<Texts>(texts).separated(separator);
        require(text != nullptr, KXJS_REFUSED);
        out(length) = text->size();
        out(data) = reinterpret_cast<uint16_t const*>(text->c_str());
        return KXJS_OK;
    });
}

kxjs_status kxjs_texts_set(kxjs_texts* texts, char const* data, size_t const* offsets,
                           size_t count) {
    return set(texts, data, offsets, count);
}

kxjs_status kxjs_texts_set_utf16(kxjs_texts* texts, uint16_t const* data, size_t const* offsets,
                                 size_t count) {
    return set(texts, data, offsets, count);
}

kxjs_status kxjs_texts_add(kxjs_texts* texts, char const* data, size_t length) {
    return add(texts, data, length);
}

kxjs_status kxjs_texts_add_utf16(kxjs_texts* texts, uint16_t const* data, size_t length) {
    return add(texts, data, length);
}

}  // extern "C"
