#pragma once

#include <memory>
#include <vector>

#include <v8.h>

#include "engine/PersistentHandle.h"
#include "host/Carriers.h"
#include "host/HostBackend.h"

namespace kx {

/// What a host no longer needs: handles of its isolate, and the variables that carriers in that
/// isolate may still point to. They are freed together, carriers first: see IsolateRecord.
struct HostResources {
    Carriers carriers;
    Variables variables;
    CompiledScripts scripts;
    std::vector<std::unique_ptr<PersistentHandle<v8::Function>>> functions;
    std::unique_ptr<PersistentHandle<v8::ObjectTemplate>> globalTemplate;
    std::unique_ptr<PersistentHandle<v8::Context>> context;
};

}  // namespace kx
