#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/HostBackend.h"
#include "host/NativeDefault.h"
#include "isolated/Message.h"

namespace kx {

class HostLog;

/// A compiled script of an isolated host: its number in the worker, and what compiles it again.
class IsolatedScript final : public CompiledScript {
  public:
    /// Enters itself in `log`, which has to outlive it. `keys` are bound to it.
    IsolatedScript(HostLog& log, std::u16string_view source, std::vector<std::u16string> keys);
    ~IsolatedScript() override;

    std::uint32_t number() const { return number_; }
    std::u16string const& source() const { return source_; }
    std::vector<std::u16string> const& keys() const { return keys_; }

  private:
    HostLog& log_;
    std::uint32_t const number_;
    std::u16string const source_;
    std::vector<std::u16string> const keys_;
};

/// What a worker has to know of an isolated host: limits, library, variables, scripts. It writes
/// the commands that tell a worker what has changed, or a new worker everything.
class HostLog {
  public:
    /// `variables` are the host's.
    explicit HostLog(Variables const& variables) : variables_(variables) {}
    HostLog(HostLog const&) = delete;
    HostLog& operator=(HostLog const&) = delete;

    void setTimeLimit(std::chrono::milliseconds limit);
    void setMemoryLimit(std::size_t bytes);
    std::chrono::milliseconds timeLimit() const { return timeLimit_; }
    void setNativeEvaluation(bool isOn);
    void noteLibrary() { hasLibrary_ = true; }
    /// Whether the worker has had no request yet, and no variable waits for one.
    bool isBlank() const { return isWorkerNew_ && variables_.empty(); }
    void noteVariable(KxJsVariable const& variable) noexcept;
    /// Forgets variables and scripts, before the host does.
    void noteReset() noexcept;

    /// Numbers for columns, from the same series as those of scripts.
    /// @{
    std::uint32_t enterColumns();
    void leaveColumns(std::uint32_t number) noexcept;
    /// @}

    /// The keys of bound variables that occur in `source`.
    std::vector<std::u16string> keysIn(std::u16string_view source) const;

    /// Writes what has changed since the last time.
    void putChanges(MessageWriter& writer);
    /// Writes, for a new worker, everything but the variables' values and the settings, which count
    /// as changed then. Returns how many results are to come.
    std::size_t putAll(MessageWriter& writer);

  private:
    friend class IsolatedScript;

    std::uint32_t newNumber() { return ++lastNumber_; }
    std::uint32_t enter(IsolatedScript const& script);
    void leave(IsolatedScript const& script) noexcept;
    void putLibrary(MessageWriter& writer);
    /// Leaving may not allocate. So entering reserves the memory for it.
    void reserveRelease();

    /// When more variables than these have changed, all are sent.
    static constexpr std::size_t kMostChanges = 32;

    Variables const& variables_;
    std::chrono::milliseconds timeLimit_{0};
    std::optional<std::size_t> memoryLimit_;
    bool hasLibrary_ = false;
    bool isWorkerNew_ = true;  // and was told nothing
    bool isNative_ = isNativeByDefault();
    bool haveSettingsChanged_ = true;
    std::map<std::uint32_t, IsolatedScript const*> scripts_;
    std::uint32_t lastNumber_ = 0;
    std::size_t columns_ = 0;
    std::vector<std::uint32_t> released_;
    std::array<KxJsVariable const*, kMostChanges> changed_{};
    std::size_t changes_ = 0;
    bool haveAllChanged_ = false;
};

}  // namespace kx
