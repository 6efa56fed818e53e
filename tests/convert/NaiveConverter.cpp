#include "NaiveConverter.h"

#include <fstream>
#include <initializer_list>
#include <iterator>
#include <stdexcept>
#include <vector>

#include <libplatform/libplatform.h>
#include <v8.h>

namespace {

void startEngine() {
    [[maybe_unused]] static bool const started = [] {
        v8::V8::SetFlagsFromString("--single-threaded");
        static v8::Platform* const platform =
            v8::platform::NewSingleThreadedDefaultPlatform().release();
        v8::V8::InitializePlatform(platform);
        return v8::V8::Initialize();
    }();
}

std::string readFile(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(file), {}};
}

v8::Local<v8::String> engineText(v8::Isolate* isolate, std::u16string_view text) {
    return v8::String::NewFromTwoByte(isolate, reinterpret_cast<std::uint16_t const*>(text.data()),
                                      v8::NewStringType::kNormal, static_cast<int>(text.size()))
        .ToLocalChecked();
}

}  // namespace

struct NaiveConverter::Engine {
    Engine() {
        startEngine();
        v8::Isolate::CreateParams parameters;
        parameters.array_buffer_allocator = allocator.get();
        isolate = v8::Isolate::New(parameters);
        v8::Isolate::Scope const entered(isolate);
        v8::HandleScope const handles(isolate);
        v8::Local<v8::Context> const local = v8::Context::New(isolate);
        v8::Context::Scope const inContext(local);
        context.Reset(isolate, local);
        std::string const source = readFile(KXJS_TEST_DATA "/naive-converter.js") +
                                   "function replace(text, pattern, replacement) {"
                                   "    return regex(pattern, replacement)(text);"
                                   "}";
        v8::Local<v8::String> const script =
            v8::String::NewFromUtf8(isolate, source.c_str()).ToLocalChecked();
        v8::Script::Compile(local, script).ToLocalChecked()->Run(local).ToLocalChecked();
    }

    ~Engine() {
        context.Reset();
        isolate->Dispose();
    }

    Engine(Engine const&) = delete;
    Engine& operator=(Engine const&) = delete;

    /// Calls a function of the script with texts, after an optional number.
    std::u16string call(char const* function, int number,
                        std::initializer_list<std::u16string_view> texts) {
        v8::Isolate::Scope const entered(isolate);
        v8::HandleScope const handles(isolate);
        v8::Local<v8::Context> const local = context.Get(isolate);
        v8::Context::Scope const inContext(local);
        v8::Local<v8::Value> const callee =
            local->Global()
                ->Get(local, v8::String::NewFromUtf8(isolate, function).ToLocalChecked())
                .ToLocalChecked();
        std::vector<v8::Local<v8::Value>> arguments;
        if (number >= 0) arguments.emplace_back(v8::Integer::New(isolate, number));
        for (std::u16string_view const text : texts) {
            arguments.emplace_back(engineText(isolate, text));
        }
        v8::Local<v8::Value> result;
        if (!callee.As<v8::Function>()
                 ->Call(local, v8::Undefined(isolate), static_cast<int>(arguments.size()),
                        arguments.data())
                 .ToLocal(&result)) {
            throw std::runtime_error("the naive converter failed");
        }
        v8::String::Value const units(isolate, result);
        return {reinterpret_cast<char16_t const*>(*units),
                static_cast<std::size_t>(units.length())};
    }

    std::unique_ptr<v8::ArrayBuffer::Allocator> allocator{
        v8::ArrayBuffer::Allocator::NewDefaultAllocator()};
    v8::Isolate* isolate = nullptr;
    v8::Global<v8::Context> context;
};

NaiveConverter::NaiveConverter() : engine_(std::make_unique<Engine>()) {}
NaiveConverter::~NaiveConverter() = default;

std::u16string NaiveConverter::apply(Pass pass, std::u16string_view text) {
    return engine_->call("applyPass", static_cast<int>(pass), {text});
}

std::u16string NaiveConverter::replaceOperator(std::u16string_view text, std::u16string_view op,
                                               std::u16string_view replacement) {
    return engine_->call("replaceOperator", -1, {text, op, replacement});
}

std::u16string NaiveConverter::replace(std::u16string_view text, std::u16string_view pattern,
                                       std::u16string_view replacement) {
    return engine_->call("replace", -1, {text, pattern, replacement});
}

std::u16string NaiveConverter::convert(std::u16string_view text) {
    std::u16string current(text);
    for (int pass = 0; pass < passCount; ++pass) current = apply(static_cast<Pass>(pass), current);
    return current;
}
