// A worker that writes any words of the fuzzer's into its lane of the channel, at any time. The
// application's end has to tell valid messages from others, and read nothing but the channel.
#include <array>
#include <chrono>
#include <cstdint>
#include <fcntl.h>
#include <functional>
#include <new>
#include <span>
#include <thread>
#include <unistd.h>
#include <vector>

#include "process/ApplicationEnd.h"
#include "process/ChannelMemory.h"
#include "process/Deadline.h"
#include "support/Check.h"

namespace {

using namespace std::chrono_literals;
using Outcome = kx::ApplicationEnd::Outcome;

constexpr std::size_t kLongest = 3 * kx::kChannelPart / 2;

/// What the worker writes next: four bytes of the input.
struct Step {
    std::uint8_t turn;
    std::uint8_t length;
    std::uint8_t more;
    std::uint8_t rest;
};

/// Mostly what a worker would write, or nearly; else anything.
std::uint32_t turnOf(Step step, std::uint32_t present) {
    return step.turn < 0xf0 ? present + 1 + (step.turn & 3U) % 3 : 0x01010101U * step.rest;
}

std::uint32_t lengthOf(Step step) {
    std::array<std::uint32_t, 8> const likely = {
        0,          1,         8, kx::kChannelPart - 1, kx::kChannelPart, kx::kChannelPart + 1,
        0x7fffffff, 0xffffffff};
    return step.length < 0xc0 ? likely[step.length % likely.size()] : step.rest * 1031U;
}

void forge(kx::ChannelWords& words, int wakePipe, std::span<std::uint8_t const> input) {
    for (; input.size() >= sizeof(Step); input = input.subspan(sizeof(Step))) {
        Step const step = {input[0], input[1], input[2], input[3]};
        std::uint32_t const asked = words.application.turn.load();
        words.worker.length.store(lengthOf(step));
        words.worker.more.store(step.more & 1U);
        words.worker.sleeps.store(step.more & 2U);
        words.worker.cpu.store(step.rest);
        words.worker.turn.store(turnOf(step, asked));
        if ((step.more & 4U) == 0) {
            [[maybe_unused]] ssize_t const written = write(wakePipe, "", 1);
        }
        auto const end = std::chrono::steady_clock::now() + 100us;
        while (words.application.turn.load() == asked && std::chrono::steady_clock::now() < end) {
            std::this_thread::yield();
        }
    }
    close(wakePipe);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static std::vector<std::byte> const request(kx::kChannelPart + 10);
    alignas(4096) static std::array<std::byte, kx::kChannelSize> memory;
    kx::ChannelWords& words = *new (memory.data()) kx::ChannelWords();
    std::array<int, 2> wakePipe = {-1, -1};
    if (pipe2(wakePipe.data(), O_NONBLOCK | O_CLOEXEC) != 0) return 0;

    kx::ApplicationEnd end(memory.data(), kx::OwnedDescriptor(wakePipe[0]), kLongest);
    std::thread worker(forge, std::ref(words), wakePipe[1], std::span(data, size));
    kx::Deadline deadline;
    deadline.set(kx::Deadline::Clock::now() + 20ms);
    std::vector<std::byte> message;
    Outcome outcome = end.receive(message, deadline);
    for (int i = 0; i < 8 && outcome == Outcome::arrived; ++i) {
        kx::fuzz::check(message.size() <= kLongest, "a message is longer than allowed");
        // Every other request takes two parts.
        end.announce();
        outcome = end.send(std::span(request).first(i % 2 == 0 ? 9 : request.size()), deadline);
        if (outcome == Outcome::arrived) outcome = end.receive(message, deadline);
    }
    worker.join();
    return 0;
}
