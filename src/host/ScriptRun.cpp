#include "host/ScriptRun.h"

#include <new>

#include "text/NumberText.h"

namespace kx {

namespace {

std::u16string bytes(std::int64_t count) {
    constexpr std::int64_t kMebibyte = 1 << 20;
    if (count % kMebibyte == 0) return decimalText(count / kMebibyte) + u" MiB";
    return decimalText(count) + u" bytes";
}

std::u16string memoryLimit(HostEngine& engine) {
    return bytes(static_cast<std::int64_t>(engine.record().memory()->limit()));
}

}  // namespace

ScriptRun::ScriptRun(HostEngine& engine)
    : engine_(engine), outer_(engine.record().watchMemory(&engine.control())) {
    if (!engine_.control().begin(engine_.isolate())) return;
    try {
        watchdog_ = engine_.watchTime();
    } catch (std::bad_alloc const&) {
        end();  // or the host's next run would pass for a nested one, which nobody watches
        throw;
    }
}

ScriptRun::~ScriptRun() {
    if (watchdog_ != nullptr) watchdog_->giveUp(engine_.control());
    end();
}

void ScriptRun::end() {
    engine_.record().watchMemory(outer_);
    EndReason const reason = engine_.control().end();
    if (reason != EndReason::none) {
        engine_.record().dropPromiseJobs();
        engine_.isolate()->CancelTerminateExecution();
    }
    MemoryWatch* const memory = engine_.record().memory();
    if (memory == nullptr || outer_ != nullptr) return;
    if (reason == EndReason::memoryLimit) {
        engine_.noteMemoryEnd();
        memory->collect();
    } else if (memory->endRun()) {
        engine_.noteMemoryEnd();
    }
}

std::u16string refusal(HostEngine& engine) {
    return u"The script was not run: its host's scripts keep more than the memory limit of " +
           memoryLimit(engine);
}

std::u16string timeLimitText(std::chrono::milliseconds limit) {
    return u"The script was ended: it ran longer than its time limit of " +
           decimalText(limit.count()) + u" ms";
}

std::u16string endText(HostEngine& engine) {
    switch (engine.control().reason()) {
        case EndReason::timeLimit:
            return timeLimitText(engine.watchedLimit());
        case EndReason::memoryLimit:
            return u"The script was ended: it needed more than the memory limit of " +
                   memoryLimit(engine);
        case EndReason::terminated:
            return u"The script was ended: it was terminated";
        default:
            return u"The script was ended: the application terminated the engine's execution";
    }
}

}  // namespace kx
