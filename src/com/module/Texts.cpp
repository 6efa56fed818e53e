#include "Texts.h"

namespace kx {

// BSTRs hold wchar_t, which is a UTF-16 code unit here like char16_t.
static_assert(sizeof(OLECHAR) == sizeof(char16_t));

BridgeText textOf(BSTR text) {
    return {text != nullptr ? reinterpret_cast<char16_t const*>(text) : u"", SysStringLen(text)};
}

BSTR makeBstr(char16_t const* text) {
    return SysAllocString(reinterpret_cast<OLECHAR const*>(text));
}

OutText::OutText(BSTR* destination) : destination_(destination) {
    if (destination_ != nullptr) *destination_ = nullptr;
}

OutText::~OutText() { SysFreeString(text_); }

TextReceiver OutText::receiver() { return {this, &OutText::receive}; }

BridgeResult KX_BRIDGE_CALL OutText::receive(void* target, char16_t const* text) {
    auto& self = *static_cast<OutText*>(target);
    SysFreeString(self.text_);
    self.text_ = makeBstr(text);
    return self.text_ != nullptr ? BridgeResult::done : BridgeResult::outOfMemory;
}

bool OutText::prepare() {
    if (text_ == nullptr) text_ = makeBstr(u"");
    return text_ != nullptr;
}

void OutText::keep() {
    if (destination_ == nullptr) return;
    *destination_ = text_;
    text_ = nullptr;
}

}  // namespace kx
