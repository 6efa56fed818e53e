#pragma once

#include <cstddef>

/// Lies of a worker about its messages, told in the channel's memory itself.
std::size_t lieCount();
char const* nameOfLie(std::size_t number);
/// Tells lie `number` in the `memory` of a channel. The worker has received the application's
/// message of number `turn`, and rings `bell`.
void lie(std::size_t number, std::byte* memory, unsigned turn, int bell);
