#pragma once

#include <atomic>
#include <windows.h>

#include "ObjectMap.h"

/// The module: counts what keeps it loaded, hands out class objects and registers the classes.
/// Any thread may call, except for registration and term().
class CKxJsParserModule {
  public:
    CKxJsParserModule();
    ~CKxJsParserModule();
    CKxJsParserModule(CKxJsParserModule const&) = delete;
    CKxJsParserModule& operator=(CKxJsParserModule const&) = delete;

    /// Count live objects and server locks.
    void lock() { ++lockCount_; }
    void unlock() { --lockCount_; }
    HRESULT canUnloadNow() const { return lockCount_ == 0 ? S_OK : S_FALSE; }

    /// Returns the class object of one of the module's classes. Fails, with null in `*ppv`, for
    /// every other class.
    HRESULT getClassObject(REFCLSID rclsid, REFIID riid, void** ppv);

    /// Enter all classes and the type library into the registry, or remove them. They stop at
    /// the first step that fails and return its result.
    HRESULT registerServer();
    HRESULT unregisterServer();

    /// Lets unregisterServer() work on the current user's part of the registry.
    void setPerUserRegistration(bool perUser) { perUser_ = perUser; }

    /// Releases the cached class factories; for the end of the module.
    void term();

  private:
    IClassFactory* classFactory(kx::ObjectMapEntry& entry);

    std::atomic<LONG> lockCount_{0};
    bool perUser_ = false;
    CRITICAL_SECTION critical_;  // around the creation of class factories
};

extern CKxJsParserModule theModule;
