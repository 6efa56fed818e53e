#include "worker/FormulaService.h"

#include <chrono>
#include <utility>
#include <vector>

#include "engine/Engine.h"
#include "engine/V8Compat.h"
#include "host/InProcessHost.h"
#include "worker/WorkerEnd.h"

namespace kx {

namespace {

/// Makes V8 read the time zone, which it does at the first use of dates only. Languages need no
/// file, and would take longer than all the rest.
constexpr char16_t const* kFirstCalls = u"new Date(0).toString()";

/// Marks an error text that a call has not set.
std::u16string const kUntouched = u"\uffff";

}  // namespace

void FormulaService::prepareZygote() {
    if (v8compat::kCanForkOnceStarted) startEngine();
}

void FormulaService::prepareWorker() {
    // The zygote has at most started the engine, and then everything of it came along.
    forkedChild = false;
    std::u16string ignored;
    // Calls like these end native evaluation for their host.
    KxJsParser().evaluate(kFirstCalls, ignored);
    host_ = std::make_unique<KxJsParser>();
    // Most hosts want the functions at once. One that does not gets another host.
    host_->initialize();
    inProcessHost(*host_).makeContext(ignored);
}

void FormulaService::serve(WorkerEnd& end) {
    end_ = &end;
    std::vector<std::byte> request;
    MessageWriter reply;
    while (true) {
        end.receive(request);
        reply.clear();
        MessageReader reader(request);
        while (reader.hasMore()) obey(reader, reply);
        end.send(reply.bytes());
    }
}

void FormulaService::obey(MessageReader& request, MessageWriter& reply) {
    switch (static_cast<Command>(request.take<std::uint8_t>())) {
        case Command::setVariable:
            host_->addSetVariable(takeVariable(request));
            break;
        case Command::release: {
            auto const number = request.take<std::uint32_t>();
            scripts_.erase(number);
            columns_.erase(number);
            break;
        }
        case Command::noLibrary: {
            auto other = std::make_unique<KxJsParser>();
            std::lock_guard const lock(mutex_);
            host_.swap(other);
            break;
        }
        case Command::timeLimit:
            host_->setTimeLimit(std::chrono::milliseconds(request.take<std::int64_t>()));
            break;
        case Command::memoryLimit:
            host_->setMemoryLimit(request.take<std::uint64_t>());
            break;
        case Command::native:
            host_->setNativeEvaluation(request.takeBool());
            break;
        case Command::install:
            host_->initialize();
            putResult(reply, withOutcome({}));
            break;
        case Command::reset:
            putResult(reply, reset());
            break;
        case Command::compile: {
            auto const script = request.take<std::uint32_t>();
            putResult(reply, compile(script, request.takeText()));
            break;
        }
        case Command::run:
            putResult(reply, run(request.take<std::uint32_t>()));
            break;
        case Command::compileColumns: {
            auto const number = request.take<std::uint32_t>();
            WorkerColumns& columns =
                columns_.try_emplace(number, *host_, end_->area(), end_->sharedMemory())
                    .first->second;
            putResult(reply, withOutcome(columns.compile(request)));
            break;
        }
        case Command::runColumns:
            columns_.at(request.take<std::uint32_t>()).run(request, reply);
            break;
    }
}

CommandResult FormulaService::compile(std::uint32_t script, std::u16string_view source) {
    CommandResult result;
    std::u16string error = kUntouched;
    std::unique_ptr<CompiledScript> compiled = host_->_backend().compile(source, error);
    result.isDone = compiled != nullptr;
    if (compiled) scripts_[script] = std::move(compiled);
    if (error != kUntouched) result.error = std::move(error);
    return withOutcome(std::move(result));
}

CommandResult FormulaService::run(std::uint32_t script) {
    CommandResult result;
    auto const found = scripts_.find(script);
    if (found == scripts_.end()) {
        // It compiled in an earlier worker, and not again in this one.
        result.error = u"The script was not run: it could not be compiled again";
        return result;
    }
    std::u16string error = kUntouched;
    result.text = host_->_backend().run(*found->second, error);
    result.isDone = true;
    if (error != kUntouched) result.error = std::move(error);
    return withOutcome(std::move(result));
}

CommandResult FormulaService::reset() {
    host_->reset();
    scripts_.clear();
    return withOutcome({});
}

CommandResult FormulaService::withOutcome(CommandResult result) const {
    result.endReason = host_->_backend().endReason();
    if (KxJsFailure const* const failure = host_->lastFailure()) result.failure = *failure;
    return result;
}

}  // namespace kx
