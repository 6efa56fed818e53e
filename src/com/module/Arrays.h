#pragma once

#include <windows.h>

#include "com/Bridge.h"

namespace kx {

/// The shapes of the arrays that clients receive; every lower bound is 0.
enum class ArrayShape {
    list,   ///< one dimension: a text for each row
    pairs,  ///< rows by 2
    square  ///< rows by rows, whatever the number of cells: clients read the bounds so
};

/// Builds an array of BSTR from a table of the library and puts it into the caller's VARIANT.
///
///     OutArray pages(pRetVal, ArrayShape::pairs);
///     return deliver(bridge.documentationManyPages(pages.receiver()), pages);
///
/// The VARIANT is written only by keep(), and then without clearing what it held: it is an
/// out-parameter, whose old content belongs to the caller. A null pointer drops the array.
class OutArray {
  public:
    OutArray(VARIANT* destination, ArrayShape shape);
    ~OutArray();
    OutArray(OutArray const&) = delete;
    OutArray& operator=(OutArray const&) = delete;

    TableReceiver receiver();
    bool prepare() const { return array_ != nullptr; }
    void keep();

  private:
    static BridgeResult KX_BRIDGE_CALL begin(void* target, std::uint32_t rows);
    static BridgeResult KX_BRIDGE_CALL receiveRow(void* target, std::uint32_t row,
                                                  char16_t const* const* cells,
                                                  std::uint32_t cellCount);

    VARIANT* destination_;
    ArrayShape shape_;
    SAFEARRAY* array_ = nullptr;
};

}  // namespace kx
