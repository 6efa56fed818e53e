#pragma once

#include <windows.h>

#include "com/Bridge.h"

namespace kx {

/// The whole of an incoming BSTR, zeros included; a null one is the empty text.
BridgeText textOf(BSTR text);

/// Makes a BSTR of a text out of the library; null where memory ends.
BSTR makeBstr(char16_t const* text);

/// An outgoing text on its way to the caller's pointer.
///
///     OutText error(pstrError);
///     OutText result(pstrRetVal);
///     return deliver(bridge.execute(parser, index, error.receiver(), result.receiver()), error,
///                    result);
///
/// The caller gets either all texts of a call or none: until keep() the pointer holds null, as an
/// out-parameter of a failed call must, and the text belongs to this object. A text that the
/// bridge did not set is an allocated empty one. A null pointer drops the text.
class OutText {
  public:
    explicit OutText(BSTR* destination);
    ~OutText();
    OutText(OutText const&) = delete;
    OutText& operator=(OutText const&) = delete;

    TextReceiver receiver();
    /// Allocates the empty text where nothing was received; false where memory ends.
    bool prepare();
    void keep();

  private:
    static BridgeResult KX_BRIDGE_CALL receive(void* target, char16_t const* text);

    BSTR* destination_;
    BSTR text_ = nullptr;
};

inline HRESULT asHresult(BridgeResult result) {
    switch (result) {
        case BridgeResult::done:
            return S_OK;
        case BridgeResult::outOfMemory:
            return E_OUTOFMEMORY;
        case BridgeResult::failed:
            break;
    }
    return E_FAIL;
}

/// Ends a call that has outgoing texts: the caller gets all of them, or none.
template <class... Texts>
HRESULT deliver(BridgeResult result, Texts&... texts) {
    if (result != BridgeResult::done) return asHresult(result);
    if (!(texts.prepare() && ...)) return E_OUTOFMEMORY;
    (texts.keep(), ...);
    return S_OK;
}

}  // namespace kx
