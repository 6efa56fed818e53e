#include "process/Lies.h"

#include <array>
#include <unistd.h>

#include "process/ChannelMemory.h"

namespace {

struct Call {
    kx::ChannelLane& lane;
    std::atomic<std::uint32_t> const& applicationTurn;
    unsigned turn;
    int bell;
};

void ring(int bell) {
    char const byte = 0;
    [[maybe_unused]] ssize_t const written = write(bell, &byte, 1);
}

void answer(Call const& call, unsigned turn, std::uint32_t length, std::uint32_t more) {
    call.lane.length.store(length);
    call.lane.more.store(more);
    call.lane.turn.store(turn);
    ring(call.bell);
}

struct Lie {
    char const* name;
    void (*tell)(Call const& call);
};

constexpr auto kLies = std::to_array<Lie>({
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
    {"rings and no answer",
     [](Call const& call) {
         while (true) ring(call.bell);
     }},
});

}  // namespace

std::size_t lieCount() { return kLies.size(); }

char const* nameOfLie(std::size_t number) { return kLies[number].name; }

void lie(std::size_t number, std::byte* memory, unsigned turn, int bell) {
    kx::ChannelWords& words = kx::channelWords(memory);
    kLies[number].tell({words.worker, words.application.turn, turn, bell});
}
