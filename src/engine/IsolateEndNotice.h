#pragma once

#include <functional>

#include <v8.h>

namespace kx {

/// Calls `action` while `isolate` is being disposed of, once. The isolate must be current now.
///
/// The engine offers no such notice, but it does give back every external string when it takes its
/// heap down: so a tiny external string is kept alive for that moment.
void notifyAtIsolateEnd(v8::Isolate* isolate, std::function<void()> action);

}  // namespace kx
