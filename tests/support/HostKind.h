#pragma once

#include <chrono>
#include <cstdlib>

#include "host/KxJsParser.h"

#ifndef KXJS_TEST_WORKER
#define KXJS_TEST_WORKER ""  // in programs that have no isolated hosts
#endif

/// Tests of what all hosts do alike run twice: in process, and in isolated hosts where the
/// environment has KXJS_TEST_ISOLATED.
inline bool areHostsIsolated() {
    static bool const areIsolated = std::getenv("KXJS_TEST_ISOLATED") != nullptr;
    return areIsolated;
}

inline KxJsIsolation testIsolation() {
    KxJsIsolation isolation;
    isolation.worker = KXJS_TEST_WORKER;
    // On a busy machine a worker that ends by itself may need longer than by default.
    isolation.grace = std::chrono::seconds(1);
    return isolation;
}

/// A host of the kind that is tested.
inline KxJsParser makeHost(KxJsIsolation const& isolation = testIsolation()) {
    return areHostsIsolated() ? KxJsParser(isolation) : KxJsParser();
}
