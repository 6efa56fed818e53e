#include "isolated/HostLog.h"

#include <algorithm>
#include <set>
#include <utility>

#include "isolated/Protocol.h"

namespace kx {

IsolatedScript::IsolatedScript(HostLog& log, std::u16string_view source,
                               std::vector<std::u16string> keys)
    : log_(log), number_(log.enter(*this)), source_(source), keys_(std::move(keys)) {}

IsolatedScript::~IsolatedScript() { log_.leave(*this); }

std::uint32_t HostLog::enter(IsolatedScript const& script) {
    reserveRelease();
    std::uint32_t const number = newNumber();
    scripts_.emplace(number, &script);
    return number;
}

std::uint32_t HostLog::enterColumns() {
    reserveRelease();
    ++columns_;
    return newNumber();
}

void HostLog::reserveRelease() {
    released_.reserve(released_.size() + scripts_.size() + columns_ + 1);
}

void HostLog::leaveColumns(std::uint32_t number) noexcept {
    --columns_;
    released_.push_back(number);
}

void HostLog::leave(IsolatedScript const& script) noexcept {
    if (scripts_.erase(script.number()) != 0) released_.push_back(script.number());
}

void HostLog::setTimeLimit(std::chrono::milliseconds limit) {
    timeLimit_ = limit;
    haveSettingsChanged_ = true;
}

void HostLog::setMemoryLimit(std::size_t bytes) {
    memoryLimit_ = bytes;
    haveSettingsChanged_ = true;
}

void HostLog::setNativeEvaluation(bool isOn) {
    isNative_ = isOn;
    haveSettingsChanged_ = true;
}

void HostLog::noteVariable(KxJsVariable const& variable) noexcept {
    auto const end = changed_.begin() + static_cast<std::ptrdiff_t>(changes_);
    if (haveAllChanged_ || std::find(changed_.begin(), end, &variable) != end) return;
    if (changes_ == kMostChanges) {
        haveAllChanged_ = true;
    } else {
        changed_[changes_++] = &variable;
    }
}

void HostLog::noteReset() noexcept {
    scripts_.clear();
    released_.clear();
    changes_ = 0;
    haveAllChanged_ = false;
}

std::vector<std::u16string> HostLog::keysIn(std::u16string_view source) const {
    std::vector<std::u16string> keys;
    for (auto const& [key, variable] : variables_) {
        if (source.find(key) != std::u16string_view::npos) keys.push_back(key);
    }
    return keys;
}

/// Tells a new worker whether the host has the built-in functions.
void HostLog::putLibrary(MessageWriter& writer) {
    if (std::exchange(isWorkerNew_, false) && !hasLibrary_) writer.put(Command::noLibrary);
}

void HostLog::putChanges(MessageWriter& writer) {
    putLibrary(writer);
    if (haveSettingsChanged_) {
        writer.put(Command::timeLimit);
        writer.put(static_cast<std::int64_t>(timeLimit_.count()));
        if (memoryLimit_) {
            writer.put(Command::memoryLimit);
            writer.put(static_cast<std::uint64_t>(*memoryLimit_));
        }
        writer.put(Command::native);
        writer.put(static_cast<std::uint8_t>(isNative_));
        haveSettingsChanged_ = false;
    }
    for (std::uint32_t const script : released_) {
        writer.put(Command::release);
        writer.put(script);
    }
    released_.clear();
    auto const put = [&writer](KxJsVariable const& variable) {
        writer.put(Command::setVariable);
        putVariable(writer, variable);
    };
    if (haveAllChanged_) {
        for (auto const& [key, variable] : variables_) put(variable);
    } else {
        for (std::size_t i = 0; i < changes_; ++i) put(*changed_[i]);
    }
    changes_ = 0;
    haveAllChanged_ = false;
}

std::size_t HostLog::putAll(MessageWriter& writer) {
    std::size_t results = 0;
    isWorkerNew_ = true;
    putLibrary(writer);
    // A script sees the variables that were bound before it was compiled. So each variable is set
    // just before the oldest script that was bound to it.
    std::set<std::u16string_view> bound;
    for (auto const& [number, script] : scripts_) {
        for (std::u16string const& key : script->keys()) {
            auto const variable = variables_.find(key);
            if (variable == variables_.end() || !bound.insert(key).second) continue;
            writer.put(Command::setVariable);
            putVariable(writer, variable->second);
        }
        writer.put(Command::compile);
        writer.put(number);
        writer.putText(script->source());
        ++results;
    }
    released_.clear();
    haveSettingsChanged_ = true;
    haveAllChanged_ = true;
    return results;
}

}  // namespace kx
