#pragma once

#include <array>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>

#include "support/Check.h"

namespace kx::fuzz {

/// A new descriptor whose reads return `bytes` in pieces of `piece` bytes, so that the fuzzer also
/// chooses where a reader's blocks end.
inline int inPieces(std::string_view bytes, std::size_t piece) {
    constexpr int kMostPieces = 100;  // the socket holds no more, and would wait for ever
    std::array<int, 2> ends{};
    check(socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends.data()) == 0, "socketpair");
    for (int sent = 0; !bytes.empty(); ++sent) {
        std::string_view const next = bytes.substr(0, sent < kMostPieces ? piece : bytes.size());
        check(send(ends[0], next.data(), next.size(), 0) == static_cast<ssize_t>(next.size()),
              "send");
        bytes.remove_prefix(next.size());
    }
    close(ends[0]);
    return ends[1];
}

}  // namespace kx::fuzz
