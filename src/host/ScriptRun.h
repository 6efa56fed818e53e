#pragma once

#include <chrono>
#include <memory>
#include <string>

#include <v8.h>

#include "host/HostEngine.h"

namespace kx {

/// One run of a script, or whatever else of a host may run for long: from construction to
/// destruction its limits hold and terminate() ends it. Made inside the host's context; captures of
/// exceptions belong inside.
class ScriptRun {
  public:
    explicit ScriptRun(HostEngine& engine);
    ~ScriptRun();
    ScriptRun(ScriptRun const&) = delete;
    ScriptRun& operator=(ScriptRun const&) = delete;

  private:
    void end();

    HostEngine& engine_;
    RunControl* outer_;
    std::shared_ptr<Watchdog> watchdog_;  // while this run's time is watched
};

/// The error text of a script that was not run: see HostEngine::isRefused().
std::u16string refusal(HostEngine& engine);

/// The error text of a script that ran longer than `limit`.
std::u16string timeLimitText(std::chrono::milliseconds limit);

/// The error text of a script that did not come to its end: says which limit ended it. Asked for
/// during the run.
std::u16string endText(HostEngine& engine);

}  // namespace kx
