#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <v8.h>

#include "engine/PersistentHandle.h"
#include "host/Carriers.h"
#include "host/CompiledScript.h"
#include "host/KxJsVariable.h"

namespace kx {

/// What a host gives up: handles of its isolate, and the variables that carriers in that isolate
/// may still point to. They go together, carriers first.
struct HostRemains {
    Carriers carriers;
    std::map<std::u16string, KxJsVariable> variables;
    std::vector<std::unique_ptr<CompiledScript>> scripts;
    std::vector<std::unique_ptr<PersistentHandle<v8::Function>>> functions;
    std::unique_ptr<PersistentHandle<v8::ObjectTemplate>> globalTemplate;
    std::unique_ptr<PersistentHandle<v8::Context>> context;
};

}  // namespace kx
