#include <gtest/gtest.h>
#include <string>

#include "ScriptHost.h"
#include "engine/Text.h"
#include "engine/V8Compat.h"
#include "host/Carriers.h"

namespace {

/// A context with the carrier's accessor and nothing else.
class Carriers : public testing::Test {
  protected:
    std::u16string read(v8::Local<v8::Object> carrier) {
        return kx::textOfValue(
            isolate_, context_,
            carrier->Get(context_, kx::toV8String(isolate_, u"value")).ToLocalChecked());
    }

    static v8::Local<v8::ObjectTemplate> makeShape(v8::Isolate* isolate) {
        v8::Local<v8::ObjectTemplate> const shape = v8::ObjectTemplate::New(isolate);
        shape->SetInternalFieldCount(1);
        kx::v8compat::setReadOnlyAccessor(isolate, shape, kx::toV8String(isolate, u"value"),
                                          kx::Carriers::accessorGetter);
        return shape;
    }

    ScriptHost host_;  // makes an isolate for the thread
    v8::Isolate* isolate_ = v8::Isolate::GetCurrent();
    v8::HandleScope handles_{isolate_};
    v8::Local<v8::ObjectTemplate> shape_ = makeShape(isolate_);
    v8::Local<v8::Context> context_ = v8::Context::New(isolate_, nullptr, shape_);
    v8::Context::Scope entered_{context_};
    void SetUp() override { kx::Carriers::leaveGlobalEmpty(context_); }
    kx::OwnHandles own_{isolate_};
    kx::Carriers carriers_;
};

TEST_F(Carriers, readAVariableWithoutATypeAsTrue) {
    KxJsVariable const untyped;
    EXPECT_EQ(read(carriers_.make(context_, shape_, carriers_.bound(untyped, u"value", own_))),
              u"true");
}

TEST_F(Carriers, followTheVariable) {
    KxJsVariable variable(u"A", 1);
    v8::Local<v8::Object> const carrier =
        carriers_.make(context_, shape_, carriers_.bound(variable, u"value", own_));
    EXPECT_EQ(read(carrier), u"1");
    variable.setValue(u"text");
    EXPECT_EQ(read(carrier), u"text");
}

TEST_F(Carriers, readAsUndefinedOnceTheyAreCut) {
    KxJsVariable const variable(u"A", 1);
    v8::Local<v8::Object> const carrier =
        carriers_.make(context_, shape_, carriers_.bound(variable, u"value", own_));
    carriers_.cutAll(isolate_);
    EXPECT_EQ(read(carrier), u"undefined");
    EXPECT_EQ(read(context_->Global()), u"undefined");
}

}  // namespace
