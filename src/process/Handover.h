#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "process/OwnedDescriptor.h"

namespace kx {

/// Messages between application and zygote, over sequenced sockets. One message is one packet.

/// An application asks the zygote for a worker. A descriptor of memory comes with the request where
/// the worker is to have more than a channel in common with the application: a worker in its
/// sandbox cannot map it any more.
struct WorkerRequest {
    std::uint64_t sharedMemory = 0;  ///< bytes of that memory; 0 for none
};

/// What it gets: `error` is 0, or errno where there is no worker. With the worker come three
/// descriptors: the channel's memory, its pipe that wakes the application, and the worker's
/// control socket.
struct ZygoteAnswer {
    std::int32_t error = 0;
};
inline constexpr std::size_t kWorkerDescriptors = 3;

/// What an application sends over a worker's control socket. Shutting the socket down ends the
/// worker.
struct ControlRequest {
    std::uint64_t memoryLimit = 0;  ///< bytes beyond what the worker has now
};

/// What the zygote sends over it.
struct ControlReport {
    enum class Kind : std::int32_t { limited = 1, ended = 2 };
    Kind kind = Kind::limited;
    std::int32_t value = 0;  ///< limited: 0 or errno. ended: the status that waitpid() gives
};

/// The most bytes of one packet.
inline constexpr std::size_t kLongestPacket = 256;

/// Sends `bytes` as one packet, with copies of `descriptors`. False where the other side is gone.
bool sendPacket(int socket, std::span<std::byte const> bytes,
                std::span<int const> descriptors = {});

/// Receives a packet into `bytes` and returns its length; 0 where the other side is gone, -1 where
/// there is none within `milliseconds` (-1: no limit). `descriptors` gets those that came with it.
std::ptrdiff_t receivePacket(int socket, std::span<std::byte> bytes, int milliseconds,
                             std::vector<OwnedDescriptor>* descriptors = nullptr);

template <class T>
std::span<std::byte const> packetOf(T const& value) {
    return std::as_bytes(std::span<T const>(&value, 1));
}

/// Receives a packet that consists of `value`. False for anything else.
template <class T>
bool receiveValue(int socket, T& value, int milliseconds,
                  std::vector<OwnedDescriptor>* descriptors = nullptr) {
    return receivePacket(socket, std::as_writable_bytes(std::span<T>(&value, 1)), milliseconds,
                         descriptors) == static_cast<std::ptrdiff_t>(sizeof(T));
}

}  // namespace kx
