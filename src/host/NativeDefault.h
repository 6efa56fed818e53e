#pragma once

namespace kx {

/// Whether a new host evaluates plain expressions without V8. KXJS_NATIVE_EVALUATION=off in the
/// environment switches it off, for users who cannot change the program.
bool isNativeByDefault();

}  // namespace kx
