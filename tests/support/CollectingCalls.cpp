// Loaded into a test program before V8, it collects all garbage at every call of the
// library that can make V8 allocate: a handle that the library does not hold rightly is
// then wrong at once, and not once in a million runs. (V8's own flag for that,
// --gc-interval, does nothing in the V8 that distributions build.)
#include <dlfcn.h>
#include <mutex>
#include <string>

#include <v8.h>

namespace {

void collect(v8::Isolate* isolate) {
    thread_local bool isCollecting = false;
    if (isolate == nullptr || isCollecting) return;
    isCollecting = true;
    static auto& mutex = *new std::mutex;  // the flag is the process's
    std::lock_guard const lock(mutex);
    v8::V8::SetFlagsFromString("--expose-gc");  // asked for below; contexts are not to see it
    isolate->RequestGarbageCollectionForTesting(v8::Isolate::kFullGarbageCollection);
    v8::V8::SetFlagsFromString("--no-expose-gc");
    isCollecting = false;
}

template <class Function>
Function* original(char const* symbol) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, symbol));
}

#if V8_MAJOR_VERSION >= 11
// Before the engine starts, which would not let its flags be changed any more.
[[gnu::constructor]] void leaveFlagsOpen() {
    v8::V8::SetFlagsFromString("--no-freeze-flags-after-init");
}
#endif

}  // namespace

namespace v8 {

MaybeLocal<String> String::NewFromTwoByte(Isolate* isolate, std::uint16_t const* data,
                                          NewStringType type, int length) {
    collect(isolate);
    static auto* const next =
        original<MaybeLocal<String>(Isolate*, std::uint16_t const*, NewStringType, int)>(
            "_ZN2v86String14NewFromTwoByteEPNS_7IsolateEPKtNS_13NewStringTypeEi");
    return next(isolate, data, type, length);
}

MaybeLocal<Object> ObjectTemplate::NewInstance(Local<Context> context) {
    collect(Isolate::GetCurrent());
    static auto* const next = original<MaybeLocal<Object>(ObjectTemplate*, Local<Context>)>(
        "_ZN2v814ObjectTemplate11NewInstanceENS_5LocalINS_7ContextEEE");
    return next(this, context);
}

Local<External> External::New(Isolate* isolate, void* value) {
    collect(isolate);
    static auto* const next =
        original<Local<External>(Isolate*, void*)>("_ZN2v88External3NewEPNS_7IsolateEPv");
    return next(isolate, value);
}

#if V8_MAJOR_VERSION >= 12
using FieldValue = Data;
constexpr auto kSetInternalField = "_ZN2v86Object16SetInternalFieldEiNS_5LocalINS_4DataEEE";
#else
using FieldValue = Value;
constexpr auto kSetInternalField = "_ZN2v86Object16SetInternalFieldEiNS_5LocalINS_5ValueEEE";
#endif

void Object::SetInternalField(int index, Local<FieldValue> value) {
    collect(Isolate::GetCurrent());
    static auto* const next = original<void(Object*, int, Local<FieldValue>)>(kSetInternalField);
    next(this, index, value);
}

Maybe<bool> Object::DefineOwnProperty(Local<Context> context, Local<Name> key, Local<Value> value,
                                      PropertyAttribute attributes) {
    collect(Isolate::GetCurrent());
    static auto* const next = original<Maybe<bool>(Object*, Local<Context>, Local<Name>,
                                                   Local<Value>, PropertyAttribute)>(
        "_ZN2v86Object17DefineOwnPropertyENS_5LocalINS_7ContextEEENS1_INS_4NameEEENS1_INS_"
        "5ValueEEENS_"
        "17PropertyAttributeE");
    return next(this, context, key, value, attributes);
}

Maybe<bool> Object::CreateDataProperty(Local<Context> context, Local<Name> key,
                                       Local<Value> value) {
    collect(Isolate::GetCurrent());
    static auto* const next =
        original<Maybe<bool>(Object*, Local<Context>, Local<Name>, Local<Value>)>(
            "_ZN2v86Object18CreateDataPropertyENS_5LocalINS_7ContextEEENS1_INS_4NameEEENS1_INS_"
            "5ValueEEE");
    return next(this, context, key, value);
}

MaybeLocal<Script> Script::Compile(Local<Context> context, Local<String> source,
                                   ScriptOrigin* origin) {
    collect(Isolate::GetCurrent());
    static auto* const next =
        original<MaybeLocal<Script>(Local<Context>, Local<String>, ScriptOrigin*)>(
            "_ZN2v86Script7CompileENS_5LocalINS_7ContextEEENS1_INS_6StringEEEPNS_12ScriptOriginE");
    return next(context, source, origin);
}

MaybeLocal<Value> Script::Run(Local<Context> context) {
    collect(Isolate::GetCurrent());
    static auto* const next = original<MaybeLocal<Value>(Script*, Local<Context>)>(
        "_ZN2v86Script3RunENS_5LocalINS_7ContextEEE");
    MaybeLocal<Value> const result = next(this, context);
    collect(Isolate::GetCurrent());
    return result;
}

MaybeLocal<String> Value::ToString(Local<Context> context) const {
    collect(Isolate::GetCurrent());
    static auto* const next = original<MaybeLocal<String>(Value const*, Local<Context>)>(
        "_ZNK2v85Value8ToStringENS_5LocalINS_7ContextEEE");
    return next(this, context);
}

Local<Script> UnboundScript::BindToCurrentContext() {
    collect(Isolate::GetCurrent());
    static auto* const next =
        original<Local<Script>(UnboundScript*)>("_ZN2v813UnboundScript20BindToCurrentContextEv");
    return next(this);
}

MaybeLocal<String> Message::GetSourceLine(Local<Context> context) const {
    collect(Isolate::GetCurrent());
    static auto* const next = original<MaybeLocal<String>(Message const*, Local<Context>)>(
        "_ZNK2v87Message13GetSourceLineENS_5LocalINS_7ContextEEE");
    return next(this, context);
}

}  // namespace v8
