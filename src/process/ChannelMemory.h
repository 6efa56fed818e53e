#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace kx {

/// The most bytes of a message that go at once.
inline constexpr std::size_t kChannelPart = std::size_t{256} * 1024;

/// What one side of a channel tells the other. Only that side writes it.
///
/// Sides take turns. The application's first message is number 1, and the worker answers message n
/// with n + 1; its first, number 1, is its report that it is ready. A message longer than a part
/// goes in several, each answered by an empty part that asks for the next.
///
/// A short message lies in the same line of the processors' caches as the words about it, and both
/// go from one processor to the other at once.
struct alignas(128) ChannelLane {
    std::atomic<std::uint32_t> turn;    ///< number of the part that lies in `bytes`
    std::atomic<std::uint32_t> length;  ///< its bytes
    std::atomic<std::uint32_t> more;    ///< not 0: the message goes on in the next part
    std::atomic<std::uint32_t> cpu;     ///< where this side ran when it sent
    std::atomic<std::uint32_t> sleeps;  ///< not 0: this side has to be woken
    std::array<std::byte, kChannelPart> bytes;
};

/// The beginning of a channel's memory. The area follows.
struct ChannelWords {
    ChannelLane application;
    ChannelLane worker;
    alignas(
        128) std::atomic<std::uint32_t> endedCall;  ///< number of the message whose work is to end
};

static_assert(std::atomic<std::uint32_t>::is_always_lock_free);

/// Whole pages.
inline constexpr std::size_t kChannelWords = (sizeof(ChannelWords) + 4095) / 4096 * 4096;
/// For values that both sides read and write in place, as their messages say. What is not used
/// takes no memory.
inline constexpr std::size_t kChannelArea = std::size_t{8} * 1024 * 1024;
inline constexpr std::size_t kChannelSize = kChannelWords + kChannelArea;

inline ChannelWords& channelWords(std::byte* memory) {
    return *reinterpret_cast<ChannelWords*>(memory);
}
inline std::byte* applicationPart(std::byte* memory) {
    return channelWords(memory).application.bytes.data();
}
inline std::byte* workerPart(std::byte* memory) { return channelWords(memory).worker.bytes.data(); }
inline std::byte* channelArea(std::byte* memory) { return memory + kChannelWords; }

}  // namespace kx
