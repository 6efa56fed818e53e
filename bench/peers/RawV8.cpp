// V8 used directly: only what every wrapper must do.
// Scripts begin with the same prologue as the library's and read variables through the same
// accessor; there is no capture of exceptions, no limit, no error text.
#include <vector>

#include <v8.h>

#include "engine/V8Compat.h"
#include "peers/Peers.h"

namespace bench {

namespace {

/// An isolate beside the library's, with V8's defaults.
v8::Isolate* sharedIsolate() {
    static v8::Isolate* const isolate = [] {
        makeLibraryPeer()->use({});  // starts V8
        v8::Isolate::CreateParams parameters;
        parameters.array_buffer_allocator = v8::ArrayBuffer::Allocator::NewDefaultAllocator();
        return v8::Isolate::New(parameters);
    }();
    return isolate;
}

struct Value {
    bool isText = false;
    double number = 0;
    std::u16string text;
};

v8::Local<v8::String> v8String(v8::Isolate* isolate, std::u16string const& text) {
    return v8::String::NewFromTwoByte(isolate, reinterpret_cast<std::uint16_t const*>(text.data()),
                                      v8::NewStringType::kNormal, static_cast<int>(text.size()))
        .ToLocalChecked();
}

void readVariable(v8::Local<v8::Name>, v8::PropertyCallbackInfo<v8::Value> const& info) {
    auto const field = info.Holder()->GetInternalField(0).As<v8::External>();
    auto const& variable = *static_cast<Value const*>(field->Value());
    if (variable.isText) {
        info.GetReturnValue().Set(v8String(info.GetIsolate(), variable.text));
    } else {
        info.GetReturnValue().Set(variable.number);
    }
}

class RawV8 final : public Peer {
  public:
    RawV8() : isolate_(sharedIsolate()) {}

    std::string name() const override { return "raw V8"; }
    std::string version() const override { return v8::V8::GetVersion(); }
    bool can(Task task, Formula const&) const override { return task != Task::convert; }

    Nanoseconds makeHosts(std::uint64_t count) override {
        Session const session(isolate_);
        dropHosts();
        return timed([&] {
            for (std::uint64_t i = 0; i < count; ++i) {
                v8::HandleScope const handles(isolate_);
                hosts_.emplace_back(isolate_, v8::Context::New(isolate_));
            }
        });
    }

    // A bare context knows no built-in function, and is not asked for one.
    std::string resultInLastHost(std::string const& javaScript) override {
        Session const session(isolate_);
        v8::HandleScope const handles(isolate_);
        v8::Local<v8::Context> const context = hosts_.back().Get(isolate_);
        v8::Context::Scope const entered(context);
        auto const text = v8String(isolate_, widen(javaScript));
        run(context, v8::Script::Compile(context, text).ToLocalChecked());
        return result();
    }

    void dropHosts() override { hosts_.clear(); }

    Nanoseconds firstRuns(std::uint64_t count) override {
        Session const session(isolate_);
        std::u16string const source = prologue_ + widen(formula_.javaScript);
        return timed([&] {
            for (std::uint64_t i = 0; i < count; ++i) {
                v8::HandleScope const handles(isolate_);
                context_.Reset(isolate_, v8::Context::New(isolate_, nullptr, shape_.Get(isolate_)));
                v8::Local<v8::Context> const context = context_.Get(isolate_);
                v8::Context::Scope const entered(context);
                bindAll();
                run(context,
                    v8::Script::Compile(context, v8String(isolate_, source)).ToLocalChecked());
            }
        });
    }

    void use(Formula const& formula) override {
        Session const session(isolate_);
        v8::HandleScope const handles(isolate_);
        formula_ = formula;
        prologue_.clear();
        texts_.clear();
        carrierNames_.clear();
        for (Variable const& variable : formula.variables) {
            prologue_ += prologueFor(variable.name);
            texts_.push_back(widen(variable.text));
            carrierNames_.push_back(widen(variable.name + "___" + variable.name));
        }
        values_.resize(formula.variables.size());
        v8::Local<v8::ObjectTemplate> const shape = v8::ObjectTemplate::New(isolate_);
        shape->SetInternalFieldCount(1);
        kx::v8compat::setReadOnlyAccessor(
            isolate_, shape, v8::String::NewFromUtf8Literal(isolate_, "ouraccessor"), readVariable);
        shape_.Reset(isolate_, shape);
        context_.Reset(isolate_, v8::Context::New(isolate_, nullptr, shape));
        v8::Context::Scope const entered(context_.Get(isolate_));
        setValues(0);
        bindAll();
    }

    void compile() override {
        Session const session(isolate_);
        v8::HandleScope const handles(isolate_);
        v8::Local<v8::Context> const context = context_.Get(isolate_);
        v8::Context::Scope const entered(context);
        auto const text = v8String(isolate_, prologue_ + widen(formula_.javaScript));
        scripts_.emplace_back(isolate_, v8::Script::Compile(context, text).ToLocalChecked());
    }

    Nanoseconds execute(std::uint64_t first, std::uint64_t count) override {
        Session const session(isolate_);
        v8::HandleScope const handles(isolate_);
        v8::Local<v8::Context> const context = context_.Get(isolate_);
        v8::Context::Scope const entered(context);
        v8::Local<v8::Script> const script = scripts_.back().Get(isolate_);
        Variable const& changing = formula_.variables.front();
        return timed([&] {
            for (std::uint64_t i = 0; i < count; ++i) {
                v8::HandleScope const runHandles(isolate_);
                values_.front().number = changing.numberAt(first + i);
                run(context, script);
            }
        });
    }

    Nanoseconds parse(std::uint64_t first, std::uint64_t count) override {
        return forUnseen(first, count, [](v8::Local<v8::Script>) {});
    }

    Nanoseconds parseAndRun(std::uint64_t first, std::uint64_t count) override {
        return forUnseen(first, count, [this](v8::Local<v8::Script> script) {
            run(context_.Get(isolate_), script);
        });
    }

    Nanoseconds oneShot(std::uint64_t first, std::uint64_t count) override {
        Session const session(isolate_);
        auto const texts = sources(first, count);
        v8::HandleScope const handles(isolate_);
        v8::Local<v8::Context> const context = context_.Get(isolate_);
        v8::Context::Scope const entered(context);
        std::uint64_t number = first;
        return timed([&] {
            for (std::u16string const& text : texts) {
                v8::HandleScope const shotHandles(isolate_);
                setValues(number++);
                bindAll();
                run(context,
                    v8::Script::Compile(context, v8String(isolate_, text)).ToLocalChecked());
            }
        });
    }

    void executeParsed() override { execute(0, 1); }

    void forget() override { scripts_.clear(); }

    std::string result() const override { return narrow(result_); }

  private:
    struct Session {
        explicit Session(v8::Isolate* isolate) : entered(isolate) {}
        v8::Isolate::Scope entered;
    };

    static std::u16string prologueFor(std::string const& key) {
        return widen(key + "=" + key + "___" + key + ".ouraccessor;\n");
    }

    /// Compiles and keeps unseen formulas, and gives each to `use`.
    template <class Use>
    Nanoseconds forUnseen(std::uint64_t first, std::uint64_t count, Use use) {
        Session const session(isolate_);
        auto const texts = sources(first, count);
        v8::HandleScope const handles(isolate_);
        v8::Local<v8::Context> const context = context_.Get(isolate_);
        v8::Context::Scope const entered(context);
        return timed([&] {
            for (std::u16string const& text : texts) {
                v8::HandleScope const parseHandles(isolate_);
                auto const script =
                    v8::Script::Compile(context, v8String(isolate_, text)).ToLocalChecked();
                scripts_.emplace_back(isolate_, script);
                use(script);
            }
        });
    }

    std::vector<std::u16string> sources(std::uint64_t first, std::uint64_t count) const {
        std::vector<std::u16string> texts;
        for (std::string const& text : unseenTexts(formula_.javaScript, first, count)) {
            texts.push_back(prologue_ + widen(text));
        }
        return texts;
    }

    void setValues(std::uint64_t run) {
        for (std::size_t i = 0; i < values_.size(); ++i) {
            Variable const& variable = formula_.variables[i];
            values_[i] = {variable.isText(), variable.numberAt(run), texts_[i]};
        }
    }

    void bindAll() {
        v8::Local<v8::Context> const context = context_.Get(isolate_);
        for (std::size_t i = 0; i < values_.size(); ++i) {
            auto const carrier = shape_.Get(isolate_)->NewInstance(context).ToLocalChecked();
            carrier->SetInternalField(0, v8::External::New(isolate_, &values_[i]));
            context->Global()->Set(context, v8String(isolate_, carrierNames_[i]), carrier).Check();
        }
    }

    void run(v8::Local<v8::Context> context, v8::Local<v8::Script> script) {
        v8::Local<v8::Value> const value = script->Run(context).ToLocalChecked();
        v8::Local<v8::String> const text = value->ToString(context).ToLocalChecked();
        result_.resize(static_cast<std::size_t>(text->Length()));
        text->Write(isolate_, reinterpret_cast<std::uint16_t*>(result_.data()), 0, text->Length(),
                    v8::String::NO_NULL_TERMINATION);
    }

    v8::Isolate* isolate_;
    std::vector<v8::Global<v8::Context>> hosts_;
    v8::Global<v8::ObjectTemplate> shape_;
    v8::Global<v8::Context> context_;
    std::vector<v8::Global<v8::Script>> scripts_;
    Formula formula_;
    std::u16string prologue_;
    // Of the variables, in their order. The application's texts are UTF-16.
    std::vector<std::u16string> texts_;
    std::vector<std::u16string> carrierNames_;
    std::vector<Value> values_;
    std::u16string result_;
};

}  // namespace

std::unique_ptr<Peer> makeRawV8Peer() { return std::make_unique<RawV8>(); }

}  // namespace bench
