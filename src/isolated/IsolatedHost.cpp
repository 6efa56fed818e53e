#include "isolated/IsolatedHost.h"

#include <stdexcept>
#include <system_error>
#include <utility>

#include "host/EndText.h"
#include "text/Utf8.h"

namespace kx {

namespace {

using Ending = SupervisedWorker::Ending;

/// More than compiling everything again takes.
constexpr std::chrono::seconds kRestoration{30};

std::u16string textOfEnd(Ending ending, std::chrono::milliseconds limit,
                         std::u16string const& status) {
    switch (ending) {
        case Ending::timeLimit:
            return timeLimitText(limit) + u", and its worker process was replaced";
        case Ending::terminated:
            return std::u16string(kTerminatedText) + u", and its worker process was replaced";
        case Ending::invalid:
            return u"The script was ended: its worker process sent what makes no sense";
        default:
            return u"The script was ended: its worker process ended" +
                   (status.empty() ? u"" : u" (" + status + u")");
    }
}

}  // namespace

IsolatedHost::IsolatedHost(Variables const& variables, KxJsIsolation const& isolation)
    : log_(variables), worker_(isolation) {}

void IsolatedHost::installLibrary() {
    if (log_.isBlank()) {
        // A new worker has the functions.
        forgetEnd();
        return log_.noteLibrary();
    }
    std::u16string ignored;
    bool const isReady = prepare(ignored);
    log_.noteLibrary();
    if (!isReady) return;
    request_.put(Command::install);
    exchange(ignored);
}

std::unique_ptr<CompiledScript> IsolatedHost::compile(std::u16string_view source,
                                                      std::u16string& error) {
    if (!prepare(error)) return nullptr;
    auto script = std::make_unique<IsolatedScript>(log_, source, log_.keysIn(source));
    request_.put(Command::compile);
    request_.put(script->number());
    request_.putText(source);
    auto const result = exchange(error);
    if (!result || !result->isDone) return nullptr;
    return script;
}

std::u16string IsolatedHost::run(CompiledScript const& script, std::u16string& error) {
    if (!prepare(error)) return {};
    request_.put(Command::run);
    request_.put(static_cast<IsolatedScript const&>(script).number());
    auto result = exchange(error);
    return result ? std::move(result->text) : std::u16string();
}

void IsolatedHost::reset(Variables& variables, CompiledScripts& scripts) {
    std::u16string ignored;
    if (!isOnItsThread()) {
        // It cannot be asked from here, and still has what is forgotten now.
        isWorkerStale_ = true;
    } else if (!worker_.isThere()) {
        forgetEnd();
    } else if (prepare(ignored)) {
        request_.put(Command::reset);
        exchange(ignored);
    }
    ++resets_;
    log_.noteReset();
    scripts.clear();
    variables.clear();
}

void IsolatedHost::releaseAll(Variables /*variables*/, CompiledScripts /*scripts*/) noexcept {}

void IsolatedHost::setMemoryLimit(std::size_t bytes) {
    if (isOnItsThread()) log_.setMemoryLimit(bytes);
}

void IsolatedHost::forgetEnd() {
    forgetFailure();
    endReason_ = EndReason::none;
}

/// Begins request_ with what the worker has to know. False, and a text in `error`, where there is
/// no worker.
bool IsolatedHost::prepare(std::u16string& error) {
    forgetEnd();
    request_.clear();
    // An exception may have left a call open.
    if (std::exchange(isWorkerStale_, false) || worker_.isCalling()) worker_.giveUp();
    if (!worker_.isThere() && !restore(error)) return false;
    log_.putChanges(request_);
    return true;
}

bool IsolatedHost::restore(std::u16string& error) {
    try {
        worker_.start();
    } catch (std::runtime_error const& failure) {  // a std::system_error is one
        error = u"The script was not run: there is no worker process: " +
                utf16FromSystem(failure.what());
        endReason_ = EndReason::workerEnded;
        noteFailure(KxJsFailure::Kind::WORKER_ENDED, error);
        return false;
    }
    ++workers_;
    std::size_t const results = log_.putAll(request_);
    auto reader = send(kRestoration, error);
    if (!reader) return false;
    // What cannot be done again says so when it is used.
    for (std::size_t i = 0; i < results; ++i) takeResult(*reader);
    request_.clear();
    return checkEnd(*reader, error);
}

/// Sends the request_, of which the last command is the only one that is answered, and makes the
/// result what the host's caller sees. Nothing, and a text in `error`, where the worker has ended;
/// it is replaced at the next call.
std::optional<CommandResult> IsolatedHost::exchange(std::u16string& error) {
    auto reader = send(log_.timeLimit(), error);
    if (!reader) return std::nullopt;
    CommandResult result = takeResult(*reader);
    if (!checkEnd(*reader, error)) return std::nullopt;
    conclude(result, error);
    return result;
}

std::optional<MessageReader> IsolatedHost::send(std::chrono::milliseconds limit,
                                                std::u16string& error) {
    beginCall(limit);
    return endCall(limit, error);
}

std::optional<MessageReader> IsolatedHost::endCall(std::chrono::milliseconds limit,
                                                   std::u16string& error) {
    Ending const ending = worker_.endCall(reply_);
    if (ending == Ending::answered) return MessageReader(reply_);
    noteEnd(ending, limit, error);
    return std::nullopt;
}

/// Whether the reply was as a worker writes it. One that was not is the worker's last.
bool IsolatedHost::checkEnd(MessageReader const& reader, std::u16string& error) {
    if (reader.isRight()) return true;
    worker_.giveUp();
    noteEnd(Ending::invalid, {}, error);
    return false;
}

void IsolatedHost::conclude(CommandResult& result, std::u16string& error) {
    if (result.error) error = std::move(*result.error);
    endReason_ = result.endReason;
    if (result.failure) noteFailure(result.failure->kind, {}) = std::move(*result.failure);
}

void IsolatedHost::terminate() {
    isTerminated_ = true;
    worker_.terminate();
}

void IsolatedHost::noteEnd(Ending ending, std::chrono::milliseconds limit, std::u16string& error) {
    error = textOfEnd(ending, limit, worker_.lastEnd());
    endReason_ = ending == Ending::timeLimit    ? EndReason::timeLimit
                 : ending == Ending::terminated ? EndReason::terminated
                                                : EndReason::workerEnded;
    noteFailure(KxJsFailure::Kind::WORKER_ENDED, error);
}

}  // namespace kx
