// Compiled without run-time type information, which the engine's library lacks.
#include <js/CompilationAndEvaluation.h>
#include <js/Conversions.h>
#include <js/Initialization.h>
#include <js/RealmOptions.h>
#include <js/SourceText.h>
#include <js/experimental/JSStencil.h>
#include <jsapi.h>
#include <memory>
#include <stdexcept>
#include <vector>

#include "peers/Peers.h"

namespace bench {

namespace {

constexpr std::uint32_t kHeapBytes = 512U << 20;

void check(JSContext* context, bool isFine) {
    if (isFine) return;
    JS::Rooted<JS::Value> exception(context);
    std::string text = "SpiderMonkey reports an error without text";
    if (JS_GetPendingException(context, &exception)) {
        JS_ClearPendingException(context);
        JS::Rooted<JSString*> const message(context, JS::ToString(context, exception));
        if (message != nullptr) text = JS_EncodeStringToLatin1(context, message).get();
    }
    throw std::runtime_error(text);
}

JS::SourceText<mozilla::Utf8Unit> sourceOf(JSContext* context, std::string const& text) {
    JS::SourceText<mozilla::Utf8Unit> source;
    check(context, source.init(context, text.data(), text.size(), JS::SourceOwnership::Borrowed));
    return source;
}

/// The engine and its one context for the thread, until the process ends.
class Engine {
  public:
    static Engine& instance() {
        static Engine engine;
        return engine;
    }

    Engine() {
        if (!JS_Init()) throw std::runtime_error("SpiderMonkey does not start");
        context_ = JS_NewContext(kHeapBytes);
        if (context_ == nullptr || !JS::InitSelfHostedCode(context_)) {
            throw std::runtime_error("SpiderMonkey makes no context");
        }
        JS::CompileOptions plain(context_);
        plain.setFileAndLine("formula", 1);
        options_ = std::make_unique<JS::OwningCompileOptions>(context_);
        check(context_, options_->copy(context_, plain));
    }
    Engine(Engine const&) = delete;
    Engine& operator=(Engine const&) = delete;
    ~Engine() {
        builtIns_ = nullptr;
        options_.reset();
        JS_DestroyContext(context_);
        JS_ShutDown();
    }

    JSContext* context() const { return context_; }
    JS::OwningCompileOptions const& options() const { return *options_; }

    /// The built-in functions, compiled once. A realm must be entered.
    JS::Stencil* builtIns() {
        if (!builtIns_) {
            auto source = sourceOf(context_, builtInFunctions());
            builtIns_ = JS::CompileGlobalScriptToStencil(context_, *options_, source);
            check(context_, builtIns_);
        }
        return builtIns_;
    }

  private:
    JSContext* context_ = nullptr;
    std::unique_ptr<JS::OwningCompileOptions> options_;
    RefPtr<JS::Stencil> builtIns_;
};

JSObject* newGlobal(JSContext* context) {
    static JSClass const kind{
        "global", JSCLASS_GLOBAL_FLAGS, &JS::DefaultGlobalClassOps, nullptr, nullptr, nullptr};
    JSObject* const global =
        JS_NewGlobalObject(context, &kind, nullptr, JS::FireOnNewGlobalHook, JS::RealmOptions());
    check(context, global != nullptr);
    return global;
}

class SpiderMonkey final : public Peer {
  public:
    SpiderMonkey()
        : context_(Engine::instance().context()),
          hosts_(context_, JS::GCVector<JSObject*>(context_)),
          global_(context_),
          scripts_(context_, JS::GCVector<JSScript*>(context_)) {}

    std::string name() const override { return "SpiderMonkey"; }
    std::string version() const override { return JS_GetImplementationVersion() + 12; }
    bool can(Task task, Formula const&) const override {
        return task != Task::convert && !isAgainstV8Alone(task);
    }

    Nanoseconds makeHosts(std::uint64_t count) override {
        dropHosts();
        JS::Rooted<JSObject*> const first(context_, newGlobal(context_));
        JSAutoRealm const entered(context_, first);
        JS::Stencil* const builtIns = Engine::instance().builtIns();
        return timed([&] {
            for (std::uint64_t i = 0; i < count; ++i) {
                JS::Rooted<JSObject*> global(context_, newGlobal(context_));
                JSAutoRealm const inHost(context_, global);
                JS::InstantiateOptions const options;
                JS::Rooted<JSScript*> script(
                    context_, JS::InstantiateGlobalStencil(context_, options, builtIns));
                check(context_, script != nullptr && JS_ExecuteScript(context_, script));
                check(context_, hosts_.append(global));
            }
        });
    }

    std::string resultInLastHost(std::string const& javaScript) override {
        JSAutoRealm const entered(context_, hosts_.back());
        JS::Rooted<JSScript*> const script(context_, compiled(javaScript));
        run(script);
        return result_;
    }

    void dropHosts() override { hosts_.clear(); }

    void use(Formula const& formula) override {
        forget();
        formula_ = formula;
        global_ = newGlobal(context_);
        JSAutoRealm const entered(context_, global_);
        bindAll(0);
    }

    void compile() override {
        JSAutoRealm const entered(context_, global_);
        check(context_, scripts_.append(compiled(formula_.javaScript)));
    }

    Nanoseconds execute(std::uint64_t first, std::uint64_t count) override {
        JSAutoRealm const entered(context_, global_);
        Variable const& changing = formula_.variables.front();
        JS::Rooted<JSScript*> const script(context_, scripts_.back());
        return timed([&] {
            for (std::uint64_t i = 0; i < count; ++i) {
                if (changing.step != 0) bind(changing, first + i);
                run(script);
            }
        });
    }

    Nanoseconds parse(std::uint64_t first, std::uint64_t count) override {
        auto const texts = unseenTexts(formula_.javaScript, first, count);
        JSAutoRealm const entered(context_, global_);
        return timed([&] {
            for (std::string const& text : texts) check(context_, scripts_.append(compiled(text)));
        });
    }

    Nanoseconds oneShot(std::uint64_t first, std::uint64_t count) override {
        auto const texts = unseenTexts(formula_.javaScript, first, count);
        JSAutoRealm const entered(context_, global_);
        std::uint64_t number = first;
        return timed([&] {
            for (std::string const& text : texts) {
                bindAll(number++);
                JS::Rooted<JSScript*> const script(context_, compiled(text));
                run(script);
            }
        });
    }

    void executeParsed() override { execute(0, 1); }
    void forget() override { scripts_.clear(); }
    std::string result() const override { return result_; }

  private:
    JSScript* compiled(std::string const& text) {
        auto source = sourceOf(context_, text);
        JSScript* const script = JS::Compile(context_, Engine::instance().options(), source);
        check(context_, script != nullptr);
        return script;
    }

    void bindAll(std::uint64_t run) {
        for (Variable const& variable : formula_.variables) bind(variable, run);
    }

    void bind(Variable const& variable, std::uint64_t run) {
        JS::Rooted<JS::Value> value(context_);
        if (variable.isText()) {
            value.setString(
                JS_NewStringCopyN(context_, variable.text.data(), variable.text.size()));
        } else {
            value.setNumber(variable.numberAt(run));
        }
        check(context_, JS_SetProperty(context_, global_, variable.name.c_str(), value));
    }

    void run(JS::Handle<JSScript*> script) {
        JS::Rooted<JS::Value> value(context_);
        check(context_, JS_ExecuteScript(context_, script, &value));
        JS::Rooted<JSString*> const text(context_, JS::ToString(context_, value));
        check(context_, text != nullptr);
        result_.resize(JS::GetStringLength(text));
        check(context_, JS::LossyCopyStringChars(context_, result_.data(), text, result_.size()));
    }

    JSContext* context_;
    JS::PersistentRooted<JS::GCVector<JSObject*>> hosts_;
    JS::PersistentRooted<JSObject*> global_;
    JS::PersistentRooted<JS::GCVector<JSScript*>> scripts_;
    Formula formula_;
    std::string result_;
};

}  // namespace

std::unique_ptr<Peer> makeSpiderMonkeyPeer() { return std::make_unique<SpiderMonkey>(); }

}  // namespace bench
