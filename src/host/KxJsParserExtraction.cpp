// Extraction of a source's free variables, by running it until nothing is missing.
#include <chrono>
#include <optional>
#include <string_view>

#include "host/EndText.h"
#include "host/HostBackend.h"
#include "host/KxJsParser.h"
#include "host/SearchTime.h"

namespace {

constexpr std::u16string_view kMissing = u" is not defined";

/// The name that `message` says is missing; nothing where it says something else.
std::optional<std::u16string> missingName(std::u16string const& message) {
    auto const blank = message.find(u' ');
    if (blank == std::u16string::npos || message.substr(blank) != kMissing) return std::nullopt;
    return message.substr(0, blank);
}

/// Searches in `host`, a new one. `limitText` receives a text where a limit ends the search.
std::vector<std::u16string> extractNames(KxJsParser& host, std::u16string const& source,
                                         std::u16string& error, kx::SearchTime const& time,
                                         std::u16string& limitText) {
    std::vector<std::u16string> names;
    kx::HostBackend const& backend = host._backend();
    if (!backend.isOnItsThread()) {
        error = kx::kWrongThread;
        return names;
    }
    // The catch clause turns V8's message about a missing name into the script's result.
    std::u16string const wrapped = u"try{" + source + u";}catch(e){e.message;};";
    host.initialize();
    while (!time.isUp()) {
        host.setTimeLimit(time.left());
        std::int32_t const index = host.parse(wrapped, error);
        std::u16string runError;
        std::u16string result;
        if (index != -1) result = host.execute(index, runError);
        if (backend.endReason() == kx::EndReason::memoryLimit ||
            backend.endReason() == kx::EndReason::workerEnded) {
            limitText = index == -1 ? error : runError;
            return names;
        }
        if (backend.endReason() != kx::EndReason::none) break;
        if (index == -1 || !runError.empty()) return names;
        std::optional<std::u16string> const name = missingName(result);
        if (!name) return names;
        names.push_back(*name);
        host.addSetVariable(KxJsVariable(*name, u" "));
    }
    limitText = kx::timeLimitText(time.limit());
    return names;
}

/// The same with a host for the caller: where a limit ends the search, `error` says so.
std::vector<std::u16string> extractWithin(KxJsParser& host, std::u16string const& source,
                                          std::u16string& error,
                                          std::chrono::milliseconds timeLimit) {
    std::u16string limitText;
    auto names = extractNames(host, source, error, kx::SearchTime(timeLimit), limitText);
    if (!limitText.empty()) error = limitText;
    return names;
}

}  // namespace

std::vector<std::u16string> KxJsParser::_extractVariable(std::u16string const& source,
                                                         std::u16string& error) {
    KxJsParser host;
    std::u16string ignored;
    return extractNames(host, source, error, kx::SearchTime(std::chrono::milliseconds::zero()),
                        ignored);
}

std::vector<std::u16string> KxJsParser::_extractVariable(std::u16string const& source,
                                                         std::u16string& error,
                                                         std::chrono::milliseconds timeLimit) {
    KxJsParser host;
    return extractWithin(host, source, error, timeLimit);
}

std::vector<std::u16string> KxJsParser::_extractVariable(std::u16string const& source,
                                                         std::u16string& error,
                                                         std::chrono::milliseconds timeLimit,
                                                         KxJsIsolation const& isolation) {
    KxJsParser host(isolation);
    return extractWithin(host, source, error, timeLimit);
}
