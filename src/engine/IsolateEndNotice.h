#pragma once

#include <functional>

#include <v8.h>

namespace kx {

/// Calls `action` while `isolate` is being disposed of, once. The isolate must be current now.
///
/// V8 offers no such notice. But it disposes of all external strings when it destroys its heap, so
/// a tiny external string is kept alive until then.
void notifyAtIsolateEnd(v8::Isolate* isolate, std::function<void()> action);

}  // namespace kx
