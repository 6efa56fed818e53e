#include "engine/V8Compat.h"

#include <cstdint>

#include <v8-version.h>

// Exported by libnode up to V8 12 though no public header declares it. Weak, so that a newer one
// still links.
namespace v8::debug {
__attribute__((weak)) v8::Platform* GetCurrentPlatform();
}

namespace kx::v8compat {

bool isV8Running() {
    if (v8::debug::GetCurrentPlatform != nullptr) return v8::debug::GetCurrentPlatform() != nullptr;
    // Only newer engines may be asked this before they are started.
    return v8::Isolate::TryGetCurrent() != nullptr;
}

void leaveWebAssemblyOut() {
#if V8_MAJOR_VERSION < 13
    v8::V8::SetFlagsFromString("--no-expose-wasm");
#endif
}

void writeCodeUnits(v8::Isolate* isolate, v8::Local<v8::String> text, char16_t* target) {
    auto* const units = reinterpret_cast<std::uint16_t*>(target);
#if V8_MAJOR_VERSION >= 14
    text->WriteV2(isolate, 0, static_cast<std::uint32_t>(text->Length()), units);
#else
    text->Write(isolate, units, 0, text->Length(), v8::String::NO_NULL_TERMINATION);
#endif
}

}  // namespace kx::v8compat
