#include "c/HandleTable.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <mutex>
#include <new>
#include <utility>
#include <vector>

namespace kx::c {
namespace {

// A handle, from its highest bit: 32 bits of uses, 28 of the slot's number, 4 of the kind.
constexpr unsigned int kSlotShift = 4;
constexpr unsigned int kUsesShift = 32;
constexpr std::uint64_t kKindMask = 0xF;
constexpr std::size_t kMostSlots = std::size_t{1} << (kUsesShift - kSlotShift);
constexpr std::size_t kBlockSize = 4096;

struct Slot {
    std::atomic<std::uint64_t> handle = 0;  ///< of the object that is there; or 0
    std::uint32_t uses = 0;
    std::shared_ptr<void> object;
};
using Block = std::array<Slot, kBlockSize>;

/// Never destroyed, and its blocks neither: a handle may be used while the process ends.
struct Table {
    std::array<std::atomic<Block*>, kMostSlots / kBlockSize> blocks{};
    std::mutex mutex;  ///< for what follows, and for changes of slots
    std::size_t size = 0;
    std::vector<std::uint32_t> free;

    Slot& slot(std::size_t number) noexcept {
        return (*blocks[number / kBlockSize].load(std::memory_order_acquire))[number % kBlockSize];
    }
};

Table& table() {
    static Table& theTable = *new Table;
    return theTable;
}

/// A slot that is not in use. To be called with the mutex.
std::size_t takeSlot(Table& table) {
    if (!table.free.empty()) {
        std::size_t const number = table.free.back();
        table.free.pop_back();
        return number;
    }
    if (table.size == kMostSlots) throw std::bad_alloc();
    table.free.reserve(table.size + 1);  // so that removing needs no memory
    if (table.size % kBlockSize == 0) {
        table.blocks[table.size / kBlockSize].store(new Block, std::memory_order_release);
    }
    return table.size++;
}

Slot* findSlot(Kind kind, std::uint64_t handle) noexcept {
    if ((handle & kKindMask) != static_cast<std::uint64_t>(kind)) return nullptr;
    Table& all = table();
    std::size_t const number = (handle >> kSlotShift) & (kMostSlots - 1);
    if (all.blocks[number / kBlockSize].load(std::memory_order_acquire) == nullptr) return nullptr;
    Slot& slot = all.slot(number);
    return slot.handle.load(std::memory_order_acquire) == handle ? &slot : nullptr;
}

}  // namespace

std::uint64_t addHandle(Kind kind, std::shared_ptr<void> object) {
    Table& all = table();
    std::lock_guard const lock(all.mutex);
    std::size_t const number = takeSlot(all);
    Slot& slot = all.slot(number);
    slot.object = std::move(object);
    if (++slot.uses == 0) ++slot.uses;
    std::uint64_t const handle = std::uint64_t{slot.uses} << kUsesShift |
                                 std::uint64_t{number} << kSlotShift |
                                 static_cast<std::uint64_t>(kind);
    slot.handle.store(handle, std::memory_order_release);
    return handle;
}

std::shared_ptr<void> const* findHandle(Kind kind, std::uint64_t handle) noexcept {
    Slot const* const slot = findSlot(kind, handle);
    return slot == nullptr ? nullptr : &slot->object;
}

std::shared_ptr<void> removeHandle(Kind kind, std::uint64_t handle) noexcept {
    Table& all = table();
    std::lock_guard const lock(all.mutex);
    Slot* const slot = findSlot(kind, handle);
    if (slot == nullptr) return nullptr;
    slot->handle.store(0, std::memory_order_release);
    all.free.push_back(static_cast<std::uint32_t>((handle >> kSlotShift) & (kMostSlots - 1)));
    return std::exchange(slot->object, nullptr);
}

}  // namespace kx::c
