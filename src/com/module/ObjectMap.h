#pragma once

#include <array>
#include <atomic>
#include <windows.h>

#include "ClassFactory.h"
#include "Registrar.h"

namespace kx {

/// What the module knows of one of its classes. No class has component categories.
struct ObjectMapEntry {
    CLSID const& clsid;
    HRESULT (*updateRegistry)(RegistryMode mode);
    IClassFactory* (*createClassFactory)(InstanceCreator creator);
    InstanceCreator createInstance;
    std::atomic<IClassFactory*> classFactory{nullptr};  ///< cached, with one reference
};

using ObjectMap = std::array<ObjectMapEntry, 1>;

extern ObjectMap objectMap;

}  // namespace kx
