#include "process/Handover.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>

namespace kx {

namespace {

constexpr std::size_t kMostDescriptors = 4;

void collect(msghdr& header, std::vector<OwnedDescriptor>& descriptors) {
    for (cmsghdr* part = CMSG_FIRSTHDR(&header); part != nullptr;
         part = CMSG_NXTHDR(&header, part)) {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_RIGHTS) continue;
        std::size_t const count = (part->cmsg_len - CMSG_LEN(0)) / sizeof(int);
        for (std::size_t i = 0; i < count; ++i) {
            int descriptor = -1;
            std::memcpy(&descriptor, CMSG_DATA(part) + i * sizeof(int), sizeof(int));
            descriptors.emplace_back(descriptor);
        }
    }
}

}  // namespace

bool sendPacket(int socket, std::span<std::byte const> bytes, std::span<int const> descriptors) {
    iovec piece = {const_cast<std::byte*>(bytes.data()), bytes.size()};
    alignas(cmsghdr) std::array<std::byte, CMSG_SPACE(kMostDescriptors * sizeof(int))> space{};
    msghdr header{};
    header.msg_iov = &piece;
    header.msg_iovlen = 1;
    if (!descriptors.empty()) {
        header.msg_control = space.data();
        header.msg_controllen = CMSG_SPACE(descriptors.size_bytes());
        cmsghdr* const part = CMSG_FIRSTHDR(&header);
        part->cmsg_level = SOL_SOCKET;
        part->cmsg_type = SCM_RIGHTS;
        part->cmsg_len = CMSG_LEN(descriptors.size_bytes());
        std::memcpy(CMSG_DATA(part), descriptors.data(), descriptors.size_bytes());
    }
    ssize_t sent = -1;
    do {
        sent = sendmsg(socket, &header, MSG_NOSIGNAL);
    } while (sent < 0 && errno == EINTR);
    return sent == static_cast<ssize_t>(bytes.size());
}

std::ptrdiff_t receivePacket(int socket, std::span<std::byte> bytes, int milliseconds,
                             std::vector<OwnedDescriptor>* descriptors) {
    pollfd waited = {socket, POLLIN, 0};
    int ready = -1;
    do {
        ready = poll(&waited, 1, milliseconds);
    } while (ready < 0 && errno == EINTR);
    if (ready <= 0) return -1;
    iovec piece = {bytes.data(), bytes.size()};
    alignas(cmsghdr) std::array<std::byte, CMSG_SPACE(kMostDescriptors * sizeof(int))> space{};
    msghdr header{};
    header.msg_iov = &piece;
    header.msg_iovlen = 1;
    if (descriptors != nullptr) {
        header.msg_control = space.data();
        header.msg_controllen = space.size();
    }
    ssize_t received = -1;
    do {
        received = recvmsg(socket, &header, MSG_CMSG_CLOEXEC | MSG_DONTWAIT);
    } while (received < 0 && errno == EINTR);
    if (received < 0) return 0;
    if (descriptors != nullptr) collect(header, *descriptors);
    return received;
}

}  // namespace kx
