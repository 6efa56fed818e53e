#include "Arrays.h"

#include <array>

#include "Texts.h"

namespace kx {

OutArray::OutArray(VARIANT* destination, ArrayShape shape)
    : destination_(destination), shape_(shape) {}

OutArray::~OutArray() {
    if (array_ != nullptr) SafeArrayDestroy(array_);
}

TableReceiver OutArray::receiver() { return {this, &OutArray::begin, &OutArray::receiveRow}; }

BridgeResult KX_BRIDGE_CALL OutArray::begin(void* target, std::uint32_t rows) {
    auto& self = *static_cast<OutArray*>(target);
    std::array<SAFEARRAYBOUND, 2> bounds = {
        {{rows, 0}, {self.shape_ == ArrayShape::pairs ? 2 : rows, 0}}};
    UINT const dimensions = self.shape_ == ArrayShape::list ? 1 : 2;
    self.array_ = SafeArrayCreate(VT_BSTR, dimensions, bounds.data());
    return self.array_ != nullptr ? BridgeResult::done : BridgeResult::outOfMemory;
}

BridgeResult KX_BRIDGE_CALL OutArray::receiveRow(void* target, std::uint32_t row,
                                                 char16_t const* const* cells,
                                                 std::uint32_t cellCount) {
    auto& self = *static_cast<OutArray*>(target);
    for (std::uint32_t cell = 0; cell < cellCount; ++cell) {
        BSTR text = makeBstr(cells[cell]);
        if (text == nullptr) return BridgeResult::outOfMemory;
        std::array<LONG, 2> indices = {static_cast<LONG>(row), static_cast<LONG>(cell)};
        // An element that cannot be stored stays a null BSTR; the others still are of use.
        SafeArrayPutElement(self.array_, indices.data(), text);
        SysFreeString(text);
    }
    return BridgeResult::done;
}

void OutArray::keep() {
    if (destination_ == nullptr) return;
    destination_->vt = VT_ARRAY | VT_BSTR;
    destination_->parray = array_;
    array_ = nullptr;
}

}  // namespace kx
