#pragma once

#include <chrono>
#include <cstdint>
#include <ctime>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "Formula.h"

namespace bench {

using Nanoseconds = std::chrono::nanoseconds;

enum class Task : std::uint8_t {
    makeHosts,
    firstRun,
    parse,
    parseAndRun,
    execute,
    oneShot,
    convert
};

/// Whether only the library and raw V8 do the task.
inline bool isAgainstV8Alone(Task task) {
    return task == Task::firstRun || task == Task::parseAndRun;
}

/// One way to evaluate formulas. An object has at most one current formula, so every case has peers
/// of its own. They share what an engine has once per process or thread.
///
/// The operations do `count` pieces of work and return the time of these alone, without setup and
/// cleanup. `first` numbers the pieces, so that no two calls do the same work. Every piece ends
/// with the text of a result in the application's memory.
class Peer {
  public:
    virtual ~Peer() = default;

    virtual std::string name() const = 0;
    virtual std::string version() const = 0;
    virtual bool can(Task task, Formula const& formula) const = 0;

    /// Makes hosts that know the built-in functions.
    virtual Nanoseconds makeHosts(std::uint64_t /*count*/) { throw cannot(); }
    /// The result of `javaScript` in the last host made.
    virtual std::string resultInLastHost(std::string const& /*javaScript*/) { throw cannot(); }
    /// Destroys them.
    virtual void dropHosts() {}

    /// Makes hosts that bind the variables of the current formula, compile it and run it, once
    /// each.
    virtual Nanoseconds firstRuns(std::uint64_t /*count*/) { throw cannot(); }

    /// Binds the variables of `formula` and makes it the current formula.
    virtual void use(Formula const& formula) = 0;
    /// Compiles it, for execute().
    virtual void compile() = 0;

    /// Runs the compiled formula, each time with the first variable's next value if it has one.
    virtual Nanoseconds execute(std::uint64_t first, std::uint64_t count) = 0;
    /// Compiles unseen formulas made from the one in use, and keeps them.
    virtual Nanoseconds parse(std::uint64_t first, std::uint64_t count) = 0;
    /// Compiles unseen formulas, keeps them, and runs each once.
    virtual Nanoseconds parseAndRun(std::uint64_t /*first*/, std::uint64_t /*count*/) {
        throw cannot();
    }
    /// For each unseen formula: sets the variables' values, compiles, runs once.
    virtual Nanoseconds oneShot(std::uint64_t first, std::uint64_t count) = 0;
    /// Runs what parse() compiled last.
    virtual void executeParsed() = 0;
    /// Discards what parse() and oneShot() have compiled.
    virtual void forget() = 0;

    /// Converts `text` from the older language.
    virtual Nanoseconds convert(std::string const& /*text*/, std::uint64_t /*count*/) {
        throw cannot();
    }

    /// The result of the last piece of work.
    virtual std::string result() const = 0;

  protected:
    static std::logic_error cannot() { return std::logic_error("not what this peer can do"); }
};

/// The processor time of the calling thread. It does not include other processes, and no peer works
/// on a second thread while it is measured.
inline Nanoseconds threadTime() {
    timespec now{};
    if (clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now) != 0) throw std::runtime_error("no clock");
    return std::chrono::seconds(now.tv_sec) + Nanoseconds(now.tv_nsec);
}

/// The processor time that `work` takes.
template <class Work>
Nanoseconds timed(Work&& work) {
    Nanoseconds const start = threadTime();
    work();
    return threadTime() - start;
}

/// The texts of `count` unseen formulas.
inline std::vector<std::string> unseenTexts(std::string const& pattern, std::uint64_t first,
                                            std::uint64_t count) {
    std::vector<std::string> texts;
    texts.reserve(count);
    for (std::uint64_t i = 0; i < count; ++i) texts.push_back(unseen(pattern, first + i));
    return texts;
}

}  // namespace bench
