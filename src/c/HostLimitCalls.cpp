// What bounds a host's runs.
#include "c/HostOfCall.h"

using namespace kx::c;  // NOLINT(google-build-using-namespace)

extern "C" {

kxjs_status kxjs_host_set_time_limit(kxjs_host* host, int64_t milliseconds) {
    return guarded([&] {
        hostOf(host).parser.setTimeLimit(limitOf(milliseconds));
        return KXJS_OK;
    });
}

kxjs_status kxjs_host_set_memory_limit(kxjs_host* host, uint64_t bytes) {
    return guarded([&] {
        hostOf(host).parser.setMemoryLimit(bytes);
        return KXJS_OK;
    });
}

kxjs_status kxjs_host_set_native_evaluation(kxjs_host* host, int32_t is_on) {
    return guarded([&] {
        hostOf(host).parser.setNativeEvaluation(is_on != 0);
        return KXJS_OK;
    });
}

// Any thread may call, so the host is not looked at.
kxjs_status kxjs_host_terminate(kxjs_host* host) {
    return guarded([&] {
        object<Host>(host).parser.terminate();
        return KXJS_OK;
    });
}

}  // extern "C"
