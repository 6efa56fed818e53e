#include "c/HostOfCall.h"
#include "host/KxJsIsolation.h"

namespace kx::c {
namespace {

constexpr std::uint32_t kAllPieces = KXJS_SANDBOX_NO_NEW_PRIVILEGES | KXJS_SANDBOX_NO_CAPABILITIES |
                                     KXJS_SANDBOX_LANDLOCK | KXJS_SANDBOX_SYSTEM_CALL_FILTER;

std::uint32_t piecesOf(KxJsSandbox const& sandbox) {
    std::uint32_t pieces = 0;
    if (sandbox.noNewPrivileges) pieces |= KXJS_SANDBOX_NO_NEW_PRIVILEGES;
    if (sandbox.noCapabilities) pieces |= KXJS_SANDBOX_NO_CAPABILITIES;
    if (sandbox.landlock) pieces |= KXJS_SANDBOX_LANDLOCK;
    if (sandbox.systemCallFilter) pieces |= KXJS_SANDBOX_SYSTEM_CALL_FILTER;
    return pieces;
}

KxJsSandbox sandboxOf(std::uint32_t pieces) {
    return {.noNewPrivileges = (pieces & KXJS_SANDBOX_NO_NEW_PRIVILEGES) != 0,
            .noCapabilities = (pieces & KXJS_SANDBOX_NO_CAPABILITIES) != 0,
            .landlock = (pieces & KXJS_SANDBOX_LANDLOCK) != 0,
            .systemCallFilter = (pieces & KXJS_SANDBOX_SYSTEM_CALL_FILTER) != 0};
}

}  // namespace

std::chrono::milliseconds limitOf(std::int64_t milliseconds) {
    // Longer than any machine runs, and no clock overflows.
    constexpr std::int64_t kLongest = std::int64_t{1} << 40;
    require(milliseconds >= 0, KXJS_BAD_ARGUMENT);
    return std::chrono::milliseconds(std::min(milliseconds, kLongest));
}

KxJsIsolation isolationOf(kxjs_isolation const* isolation) {
    KxJsIsolation result;
    if (isolation == nullptr) return result;
    kxjs_isolation const given = readStruct(*isolation);
    require((given.required_sandbox & ~kAllPieces) == 0 && given.reserved == 0, KXJS_BAD_ARGUMENT);
    checkText(given.worker, given.worker_length);
    result.memoryLimit = given.memory_limit;
    result.grace = limitOf(given.grace_ms);
    if (given.worker != nullptr) result.worker.assign(given.worker, given.worker_length);
    result.required = sandboxOf(given.required_sandbox);
    result.sharedMemory = given.shared_memory;
    return result;
}

}  // namespace kx::c

using namespace kx::c;  // NOLINT(google-build-using-namespace)

extern "C" {

kxjs_status kxjs_isolation_init(kxjs_isolation* isolation, size_t struct_size) {
    return guarded([&] {
        kxjs_isolation& given = out(isolation);
        require(struct_size >= kFirstSize<kxjs_isolation> && struct_size <= kMostStructSize,
                KXJS_BAD_ARGUMENT);
        KxJsIsolation const defaults;
        kxjs_isolation value{};
        value.memory_limit = defaults.memoryLimit;
        value.grace_ms = defaults.grace.count();
        value.required_sandbox = piecesOf(defaults.required);
        value.shared_memory = defaults.sharedMemory;
        writeStruct(given, value, struct_size);
        return KXJS_OK;
    });
}

kxjs_status kxjs_host_create_isolated(kxjs_isolation const* isolation, kxjs_host** host,
                                      kxjs_text* error) {
    return guarded([&] {
        kxjs_host*& handle = out(host);
        Text* const reason = optional<Text>(error);
        KxJsIsolation const settings = isolationOf(isolation);
        std::shared_ptr<Host> made;
        try {
            made = std::make_shared<Host>(settings);
        } catch (std::runtime_error const& failure) {
            setText(reason, kx::utf16FromSystem(failure.what()));
            return kxjs_status{KXJS_NO_WORKER};
        }
        setText(reason, {});
        return create(&handle, std::move(made));
    });
}

kxjs_status kxjs_host_sandbox(kxjs_host* host, uint32_t* pieces) {
    return guarded([&] {
        KxJsSandbox const* const sandbox = hostOf(host).parser.sandbox();
        uint32_t& result = out(pieces);
        require(sandbox != nullptr, KXJS_NOT_FOUND);
        result = piecesOf(*sandbox);
        return KXJS_OK;
    });
}

kxjs_status kxjs_host_shared_memory(kxjs_host* host, void** memory, size_t* length) {
    return guarded([&] {
        auto const shared = hostOf(host).parser.sharedMemory();
        void*& place = out(memory);
        size_t& size = out(length);
        place = shared.empty() ? nullptr : shared.data();
        size = shared.size();
        return shared.empty() ? KXJS_NOT_FOUND : KXJS_OK;
    });
}

}  // extern "C"
