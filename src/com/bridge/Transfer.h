#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <new>
#include <stdexcept>
#include <string>

#include "com/Bridge.h"

// What every function of the bridge does with its texts, tables and exceptions.

namespace kx {

inline std::u16string stringOf(BridgeText const& text) { return {text.data, text.length}; }

/// Runs `work` and ends what it throws: where memory ends, that is std::bad_alloc, or
/// std::length_error for a text beyond any memory. Anything else is a failure of its own kind.
template <class Work>
BridgeResult guarded(Work const& work) noexcept {
    try {
        return work();
    } catch (std::bad_alloc const&) {
        return BridgeResult::outOfMemory;
    } catch (std::length_error const&) {
        return BridgeResult::outOfMemory;
    } catch (...) {
        return BridgeResult::failed;
    }
}

inline BridgeResult send(std::u16string const& text, TextReceiver const& receiver) {
    return receiver.receive(receiver.target, text.c_str());
}

inline BridgeResult sendError(std::u16string const& text, TextReceiver const& receiver) {
    return text.empty() ? BridgeResult::done : send(text, receiver);
}

inline BridgeResult sendRow(TableReceiver const& receiver, std::size_t row,
                            std::initializer_list<char16_t const*> cells) {
    return receiver.row(receiver.target, static_cast<std::uint32_t>(row), cells.begin(),
                        static_cast<std::uint32_t>(cells.size()));
}

inline BridgeResult beginTable(TableReceiver const& receiver, std::size_t rows) {
    return receiver.begin(receiver.target, static_cast<std::uint32_t>(rows));
}

}  // namespace kx
