#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/KxJsFailure.h"
#include "host/KxJsIsolation.h"
#include "host/KxJsVariable.h"
#include "library/Export.h"

// V8's types appear in three signatures only, by name: applications need no V8 headers.
namespace v8 {
template <class T>
class Local;
class String;
class Value;
}  // namespace v8

namespace kx {
class CompiledScript;
class HostBackend;
}  // namespace kx

/// A script host: one JavaScript context, the variables bound to it and its compiled scripts.
///
///     KxJsParser parser;
///     parser.initialize();  // the 63 built-in functions
///     parser.addSetVariable(KxJsVariable(u"A", 5));
///     std::u16string error;
///     std::u16string source = Converter::_convert(u"IIF(A>2,'OK','KO')");
///     std::int32_t script = parser.parse(source, error);
///     if (script >= 0) show(parser.execute(script, error));  // "OK"
///     if (!error.empty()) show(error);
///
/// A failing script never throws: its failure comes back as text. Programming errors do (an index
/// outside the store), and so does std::bad_alloc where the application's memory ends; the host is
/// then as it was before the call.
///
/// Threads: use a host on the thread that made it only. Elsewhere parse() returns -1 and execute()
/// an empty result with an error text. Destroying a host on another thread, or after its thread has
/// ended, is safe. A host in process belongs to the V8 isolate that was current when it was made;
/// the library makes one for a thread that has none.
///
/// Processes: after a fork(), the child can destroy its hosts in process and exit, but run nothing
/// in them. KxJsIsolation.h says what isolated hosts do.
class KXJS_API KxJsParser {
  public:
    /// A host without variables, scripts and, until initialize(), built-in functions.
    KxJsParser();

    /// An isolated host: its scripts run in a worker process of their own, in a sandbox. Whatever a
    /// script does, it can at worst end its worker: the call then has an error text, and the next
    /// call a new worker. Every member works. KxJsIsolation says what differs, and what it costs.
    /// Throws std::runtime_error where the program kxjs-worker, which is installed with the
    /// library, cannot be started or is of another version, or the system lacks a required piece of
    /// the sandbox.
    explicit KxJsParser(KxJsIsolation const& isolation);
    ~KxJsParser();
    KxJsParser(KxJsParser const&) = delete;
    KxJsParser& operator=(KxJsParser const&) = delete;

    /// Defines the built-in functions in the host's context. Where that fails (a limit ended it,
    /// the thread's stack is nearly used up, or scripts have locked the names), lastFailure() says
    /// so. A second call defines them again. After it, LISTFUNCT fails with a type error: the
    /// functions save Function.prototype.toString, and the second time that is their own.
    void initialize();

    /// Forgets all variables and compiled scripts, so that the next parse() returns 0. The
    /// variables' globals are deleted. The context stays, with the built-in functions and all other
    /// globals of scripts. The globals stay too where a key is no identifier, and on another
    /// thread.
    void reset();

    /// Stores a copy of `variable` under its key, in place of an earlier one. A script sees the
    /// variables that were bound when it was parsed, with the values that they have when it runs.
    /// Returns false, and stores nothing, for the key "ouraccessor" and for an empty or blank key.
    ///
    ///     parser.addSetVariable(KxJsVariable(u"PRICE", 12.5));
    bool addSetVariable(KxJsVariable const& variable);
    /// Whether a variable with exactly this key is bound.
    bool variableExist(std::u16string const& key) const;
    /// The type of the variable `key`; TYPE_OF_VAR_UNDEFINED where none is bound.
    KxJsVariable::TypeOfVar getVariableType(std::u16string const& key) const;

    /// Compiles `source`, JavaScript. Returns its index in the store of compiled scripts, or -1 and
    /// a text in `error`. `error` is left alone on success, and on a wrong thread.
    std::int32_t parse(std::u16string source, std::u16string& error);

    /// Runs the script `index`. Returns the text of its completion value, or an empty text and the
    /// failure's text in `error`. A result that contains "NaN" comes with the error text "Not A
    /// Number". `error` is left alone otherwise. Throws std::out_of_range for an index outside the
    /// store, so for the -1 of a failed parse() too: check that first.
    std::u16string execute(std::int32_t index, std::u16string& error);

    /// Compiles `source`, runs it once and forgets it: for formulas that are not run again. Result
    /// and `error` are those of execute(), or of parse() where it does not compile.
    ///
    ///     std::u16string total = parser.evaluate(u"ROUND(1.25, 1)", error);  // "1.3"
    std::u16string evaluate(std::u16string source, std::u16string& error);

    /// The failure of the last initialize(), parse(), execute(), evaluate() or reset(), with its
    /// place in the caller's source; null when that succeeded. The object is the host's, and lives
    /// until the next of these calls. Use it on the host's thread.
    ///
    ///     if (parser.parse(u"1 +\n* 2", error) == -1)
    ///         underline(parser.lastFailure()->line, parser.lastFailure()->column);  // 2, 1
    KxJsFailure const* lastFailure() const;

    /// Which pieces of the sandbox the worker of an isolated host is in; null for other hosts.
    KxJsSandbox const* sandbox() const;

    /// Memory that an isolated host has in common with its worker: KxJsIsolation::sharedMemory
    /// bytes, zero at first, aligned for every type, for the life of the host. Empty for other
    /// hosts. KxJsColumns leaves numbers and results of numbers that lie there where they are,
    /// instead of copying them. The worker can write there at any time: should a formula take it
    /// over, nothing that lies there is right any more.
    ///
    ///     std::span<std::byte> memory = parser.sharedMemory();
    ///     double* prices = reinterpret_cast<double*>(memory.data());
    std::span<std::byte> sharedMemory() const;

    /// Ends each run that takes longer than `limit`; 0, the default, is no limit. The result is
    /// then empty, the error text names the limit, and the host goes on working. parse() counts as
    /// a run. Throws std::system_error where the library cannot start its watching thread.
    void setTimeLimit(std::chrono::milliseconds limit);

    /// Ends each run that needs more than `bytes`, at most 4 GiB: a limit of the isolate, and so of
    /// all hosts of the thread. The default is a quarter of the machine's memory, at most 512 MiB;
    /// none in an isolate of the application. Has no effect on a wrong thread. Memory is measured
    /// when V8 collects garbage, so a run may exceed the limit for a moment: see docs/limits.md.
    void setMemoryLimit(std::size_t bytes);

    /// Whether formulas that are plain expressions may be evaluated without V8, where result, error
    /// text and all that scripts can see are the same. On by default, since it is several times
    /// faster; switching it off is for comparisons, and for users who doubt a result.
    ///
    ///     parser.setNativeEvaluation(false);  // from here on V8 runs everything
    void setNativeEvaluation(bool isOn);

    /// Ends the run that is going on in this host, with an error text that says so. Without one,
    /// nothing happens. Any thread may call, as long as the host lives.
    void terminate();

    /// The names that `source` uses and nothing defines, in the order in which runs fail on them.
    /// The source is run in a host of its own, once for each name, with the names found so far
    /// bound to a blank. `error` receives a text where `source` does not compile. A source that
    /// makes up names at run time never ends: give a time limit.
    static std::vector<std::u16string> _extractVariable(std::u16string const& source,
                                                        std::u16string& error);

    /// The same within `timeLimit` in all; 0 is no limit. Where a limit ends the search, `error`
    /// receives a text that names it, and the result is what was found until then.
    ///
    ///     auto const names = KxJsParser::_extractVariable(u"PRICE*2", error, 500ms);  // PRICE
    static std::vector<std::u16string> _extractVariable(std::u16string const& source,
                                                        std::u16string& error,
                                                        std::chrono::milliseconds timeLimit);
    /// The same in an isolated host. Where its worker ends, `error` receives a text that says so.
    /// Throws as the constructor of isolated hosts.
    static std::vector<std::u16string> _extractVariable(std::u16string const& source,
                                                        std::u16string& error,
                                                        std::chrono::milliseconds timeLimit,
                                                        KxJsIsolation const& isolation);

    /// HTML documentation of all built-in functions as one document. `bStandalone` adds the
    /// document's head and body tags, `bWithExample` the examples.
    static std::u16string _getUserDocumentation(bool bStandalone, bool bWithExample);
    /// HTML documentation as one page per function: name and page, in catalogue order.
    static std::vector<std::pair<std::u16string, std::u16string>> _getUserDocumentation();

    /// Conversions between this library's texts and V8's, in the current isolate: for callers that
    /// use V8 themselves. A V8 text ends at its first U+0000. A value becomes the text that scripts
    /// convert it to; an empty text where that throws, and for an object or symbol where no context
    /// is entered.
    /// @{
    static v8::Local<v8::String> _convertStdStringToV8String(std::u16string text);
    static std::u16string _convertV8StringToStdString(v8::Local<v8::String> text);
    static std::u16string _convertV8StringToStdString(v8::Local<v8::Value> value);
    /// @}

    /// For the library's own modules: the type is internal.
    kx::HostBackend& _backend() const;

  private:
    static constexpr std::u16string_view _mAccessorName = u"ouraccessor";

    std::vector<std::unique_ptr<kx::CompiledScript>> _mVecOfCompiledScripts;
    std::map<std::u16string, KxJsVariable> _mVariables;
    std::unique_ptr<kx::HostBackend> _mBackend;
};
