#include "process/Forgeries.h"

#include <array>
#include <unistd.h>

#include "process/ChannelMemory.h"

namespace {

struct Call {
    kx::ChannelLane& lane;
    std::atomic<std::uint32_t> const& applicationTurn;
    unsigned turn;
    int wakePipe;
};

void wake(int wakePipe) {
    char const byte = 0;
    [[maybe_unused]] ssize_t const written = write(wakePipe, &byte, 1);
}

void answer(Call const& call, unsigned turn, std::uint32_t length, std::uint32_t more) {
    call.lane.length.store(length);
    call.lane.more.store(more);
    call.lane.turn.store(turn);
    wake(call.wakePipe);
}

struct Forgery {
    char const* name;
    void (*write)(Call const& call);
};

constexpr auto kForgeries = std::to_array<Forgery>({
    {"a part longer than the memory",
     [](Call const& call) { answer(call, call.turn + 1, kx::kChannelPart + 1, 0); }},
    {"a length near the end of its range",
     [](Call const& call) { answer(call, call.turn + 1, 0xffffffff, 0); }},
    {"an answer to a message that was not sent",
     [](Call const& call) { answer(call, call.turn + 2, 1, 0); }},
    {"an answer from the past", [](Call const& call) { answer(call, call.turn - 1, 1, 0); }},
    {"empty parts for ever", [](Call const& call) { answer(call, call.turn + 1, 0, 1); }},
    {"full parts for ever",
     [](Call const& call) {
         for (unsigned turn = call.turn;; ++turn) {
             answer(call, turn + 1, kx::kChannelPart, 1);
             while (call.applicationTurn.load() == turn) __builtin_ia32_pause();
         }
     }},
    {"an answer that changes while it is read",
     [](Call const& call) {
         answer(call, call.turn + 1, 8, 0);
         while (true) {
             call.lane.length.fetch_xor(0xffff0000);
             call.lane.turn.fetch_xor(0x80000000);
         }
     }},
    {"wake-ups and no answer",
     [](Call const& call) {
         while (true) wake(call.wakePipe);
     }},
});

}  // namespace

std::size_t forgeryCount() { return kForgeries.size(); }

char const* nameOfForgery(std::size_t number) { return kForgeries[number].name; }

void forge(std::size_t number, std::byte* memory, unsigned turn, int wakePipe) {
    kx::ChannelWords& words = kx::channelWords(memory);
    kForgeries[number].write({words.worker, words.application.turn, turn, wakePipe});
}
