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

OutText::OutText(BSTR* destination) : _mDestination(destination) {
    if (_mDestination != nullptr) *_mDestination = nullptr;
}

OutText::~OutText() { SysFreeString(_mText); }

TextReceiver OutText::receiver() { return {this, &OutText::take}; }

BridgeResult KX_BRIDGE_CALL OutText::take(void* target, char16_t const* text) {
    auto& self = *static_cast<OutText*>(target);
    SysFreeString(self._mText);
    self._mText = makeBstr(text);
    return self._mText != nullptr ? BridgeResult::done : BridgeResult::outOfMemory;
}

bool OutText::prepare() {
    if (_mText == nullptr) _mText = makeBstr(u"");
    return _mText != nullptr;
}

void OutText::keep() {
    if (_mDestination == nullptr) return;
    *_mDestination = _mText;
    _mText = nullptr;
}

}  // namespace kx
