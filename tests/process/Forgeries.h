#pragma once

#include <cstddef>

/// Messages that no worker sends, written into the channel's memory itself.
std::size_t forgeryCount();
char const* nameOfForgery(std::size_t number);
/// Writes forgery `number` into the `memory` of a channel. The worker has received the
/// application's message of number `turn`, and writes to `wakePipe`.
void forge(std::size_t number, std::byte* memory, unsigned turn, int wakePipe);
