#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/KxJsFailure.h"
#include "host/KxJsVariable.h"
#include "library/Export.h"

// The engine's types appear in a few signatures only by name, so an application needs no engine
// headers to use this one.
namespace v8 {
template <class T>
class Local;
class Context;
class ObjectTemplate;
class Script;
class String;
class TryCatch;
class Value;
}  // namespace v8

namespace kx {
class ColumnEvaluation;
class CompiledScript;
class HostEngine;
struct CallerSource;
class SearchTime;
template <class T>
class PersistentHandle;
}  // namespace kx

/// A script host: one JavaScript context, the variables bound to it and its compiled scripts.
///
///     KxJsParser parser;
///     parser.initialize();  // the 63 built-in functions
///     parser.addSetVariable(KxJsVariable(u"A", 5));
///     std::u16string error;
///     std::u16string source = Converter::_convert(u"IIF(A>2,'OK','KO')");
///     std::int32_t script = parser.parse(source, error);
///     std::u16string result = parser.execute(script, error);  // "OK"
///     if (!error.empty()) show(error);
///
/// Failures of a script are never thrown: they come back as text beside the result. Every call
/// throws std::bad_alloc where the application's memory ends, and leaves the host as it was.
///
/// Threads: a host belongs to the engine isolate that was current on the thread that made it; the
/// library makes one for the thread where there is none. Use it from that thread only. parse()
/// elsewhere returns -1, execute() an empty result with an error text. Destroying a host on
/// another thread, or after its thread has ended, is safe.
///
/// Processes: the engine's memory does not follow a fork(). In the child, hosts can be destroyed,
/// and the process can exit; nothing runs there, in new hosts neither.
class KXJS_API KxJsParser {
  public:
    /// A host without variables, scripts and, until initialize(), built-in functions.
    KxJsParser();
    ~KxJsParser();
    KxJsParser(KxJsParser const&) = delete;
    KxJsParser& operator=(KxJsParser const&) = delete;

    /// Installs the built-in functions into the context. Calling it again defines them again.
    /// Where they cannot all be defined, there is a lastFailure(): the time limit or terminate()
    /// has ended it, the thread's stack is nearly used up, or scripts have locked their names.
    void initialize();

    /// Forgets all variables and all compiled scripts, so that the next parse() returns 0. The
    /// variables' globals are deleted by a script, so they stay where the name of one of them is no
    /// identifier, and on another thread. The context with its built-in functions stays, and so
    /// does every other global that scripts created.
    void reset();

    /// Stores `variable` under its key, replacing an earlier value. A script sees the variables
    /// that were bound when it was parsed, with the values they have when it runs.
    /// Returns false, and stores nothing, for the key "ouraccessor" and for an empty or blank key.
    bool addSetVariable(KxJsVariable const& variable);
    /// Whether a variable of that name is bound.
    bool variableExist(std::u16string const& key) const;
    /// The type of the variable `key`; TYPE_OF_VAR_UNDEFINED where there is none.
    KxJsVariable::TypeOfVar getVariableType(std::u16string const& key) const;

    /// Compiles `source` and returns its index in the store of compiled scripts, or -1.
    /// `error` receives a text when compilation fails and is left alone otherwise.
    std::int32_t parse(std::u16string source, std::u16string& error);

    /// Runs the script `index` and returns the text of its completion value.
    /// `error` receives a text when the run fails (the result is then empty) or when the result
    /// contains "NaN" ("Not A Number", beside the result); it is left alone otherwise.
    /// Throws std::out_of_range for an index outside the store.
    std::u16string execute(std::int32_t index, std::u16string& error);

    /// Compiles `source`, runs it once and forgets it: for formulas that are not run again, of
    /// which execute() would need more memory with each. Result and `error` as execute() gives
    /// them, or parse() where it does not compile; the store of compiled scripts stays as it is.
    ///
    ///     std::u16string total = parser.evaluate(u"ROUND(1.25, 1)", error);  // "1.3"
    std::u16string evaluate(std::u16string source, std::u16string& error);

    /// The failure of the last initialize(), parse(), execute() or evaluate(), reset() included,
    /// with its place in the source that the caller wrote; null when that succeeded. A result that
    /// contains "NaN" is no failure, although it comes with an error text. The object is the host's
    /// and lives until the next of these calls. Use it on the host's thread only; calls that
    /// another thread makes wrongly leave it alone.
    ///
    ///     if (parser.parse(u"1 +\n* 2", error) == -1)
    ///         underline(parser.lastFailure()->line, parser.lastFailure()->column);  // 2, 1
    KxJsFailure const* lastFailure() const;

    /// Ends a script that runs longer than `limit`; 0, the default, is no limit. The script's
    /// result is then empty, its error text names the limit, and the host works on. Parsing, the
    /// text of the result and promise jobs count too. While any host has a time limit, one thread
    /// of the library watches, with all signals blocked. Throws std::system_error where that thread
    /// cannot be started.
    void setTimeLimit(std::chrono::milliseconds limit);

    /// Ends a script that needs more than `bytes` of memory, array buffers included: a limit of the
    /// engine isolate, and so of all hosts of a thread. The default is a quarter of the machine's
    /// memory and at most 512 MiB; none in an isolate that the application has made. The limit is
    /// looked at in garbage collections, so a script may go beyond it for a moment, and a single
    /// built-in call far beyond it; what the engine needs for compiling is not counted, and an
    /// `Intl` object counts as a large one. At most 4 GiB; with 0 hardly any script runs. Elsewhere
    /// than on the host's thread nothing happens.
    ///
    /// What scripts keep in globals stays in use, and later scripts may use a little more than
    /// that. When twice the limit (the limit and 128 MiB at least) is nearly reached so, hosts of
    /// which a script was ended for its memory run nothing, and say so, until a host of the thread
    /// is destroyed or reset and memory comes back, or another limit is set. A limit that is set
    /// while a script of the thread runs holds from the next one on.
    void setMemoryLimit(std::size_t bytes);

    /// Ends the script that this host is running, with an error text that says so. Without one,
    /// nothing happens. Any thread may call, as long as the host lives.
    void terminate();

    /// The names that `source` uses and nobody defines, in the order in which runs fail on them:
    /// the source is run in a host of its own, again and again, with every name found so far
    /// bound to a blank. `error` receives a text when `source` does not compile. A source that
    /// makes up names at run time never ends.
    static std::vector<std::u16string> _extractVariable(std::u16string const& source,
                                                        std::u16string& error);

    /// The same, ended after `timeLimit` in all; 0 is no limit. Where it or the memory limit ends
    /// the search, `error` receives a text that names the limit, and the result is what was found
    /// until then.
    ///
    ///     auto const names = KxJsParser::_extractVariable(u"PRICE*2", error, 500ms);  // PRICE
    static std::vector<std::u16string> _extractVariable(std::u16string const& source,
                                                        std::u16string& error,
                                                        std::chrono::milliseconds timeLimit);

    /// HTML documentation of all built-in functions as one document.
    /// `bStandalone` adds the document's head and body tags, `bWithExample` the examples.
    static std::u16string _getUserDocumentation(bool bStandalone, bool bWithExample);
    /// HTML documentation as one page per function: name and page, in catalogue order.
    static std::vector<std::pair<std::u16string, std::u16string>> _getUserDocumentation();

    /// Conversions between this library's and the engine's texts, in the current isolate. For
    /// callers that use the engine themselves. An engine text ends at its first U+0000.
    /// @{
    static v8::Local<v8::String> _convertStdStringToV8String(std::u16string text);
    static std::u16string _convertV8StringToStdString(v8::Local<v8::String> text);
    static std::u16string _convertV8StringToStdString(v8::Local<v8::Value> value);
    /// @}

  private:
    friend class kx::ColumnEvaluation;

    void createContext();
    void disposeGlobalContext();
    std::u16string addWrapper(std::u16string& source);
    void clearVariables();
    void clearVecOfCompiledScripts();
    std::u16string run(kx::CompiledScript const& script, std::u16string& error);
    std::u16string runUnlessRefused(kx::CompiledScript const& script, std::u16string& error);
    std::u16string reportException(v8::TryCatch& capture, KxJsFailure::Kind kind,
                                   kx::CallerSource const& source);
    void noteFailure(KxJsFailure::Kind kind, std::u16string const& message);
    static std::vector<std::u16string> extractNames(KxJsParser& host, std::u16string const& source,
                                                    std::u16string& error,
                                                    kx::SearchTime const& time,
                                                    std::u16string& limitText);

    static constexpr std::u16string_view _mAccessorName = u"ouraccessor";

    std::unique_ptr<kx::PersistentHandle<v8::Context>> _mContext;
    std::unique_ptr<kx::PersistentHandle<v8::ObjectTemplate>> _mGlobalTemplate;
    std::vector<std::unique_ptr<kx::CompiledScript>> _mVecOfCompiledScripts;
    std::map<std::u16string, KxJsVariable> _mVariables;
    std::unique_ptr<kx::HostEngine> _mEngine;
    std::unique_ptr<KxJsFailure> _mLastFailure;
};
