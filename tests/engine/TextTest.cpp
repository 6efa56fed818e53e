#include <array>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "engine/Text.h"
#include "host/ScriptHost.h"

namespace {

TEST(Text, convertsThereAndBack) {
    ScriptHost host;  // makes an isolate for the thread
    v8::HandleScope const handles(v8::Isolate::GetCurrent());
    for (std::u16string const text :
         {u"", u"a", u"Grüße", u"中文", u"\U0001F600", u"\xD800 lone", u"\xDC00"}) {
        v8::Local<v8::String> const v8Text = KxJsParser::_convertStdStringToV8String(text);
        EXPECT_EQ(v8Text->Length(), static_cast<int>(text.size()));
        EXPECT_EQ(KxJsParser::_convertV8StringToStdString(v8Text), text);
    }
}

TEST(Text, endsAtTheFirstZero) {
    ScriptHost host;
    v8::HandleScope const handles(v8::Isolate::GetCurrent());
    std::u16string const text(u"ab\0cd", 5);
    v8::Local<v8::String> const v8Text = KxJsParser::_convertStdStringToV8String(text);
    EXPECT_EQ(v8Text->Length(), 5);
    EXPECT_EQ(KxJsParser::_convertV8StringToStdString(v8Text), u"ab");
}

TEST(Text, isEmptyForAnEmptyHandle) {
    ScriptHost host;
    EXPECT_EQ(KxJsParser::_convertV8StringToStdString(v8::Local<v8::String>()), u"");
}

TEST(Text, convertsAnyValue) {
    ScriptHost host;
    v8::Isolate* const isolate = v8::Isolate::GetCurrent();
    v8::HandleScope const handles(isolate);
    v8::Local<v8::Context> const context = v8::Context::New(isolate);
    v8::Context::Scope const entered(context);
    v8::Local<v8::Value> const number = v8::Number::New(isolate, 2.5);
    EXPECT_EQ(KxJsParser::_convertV8StringToStdString(number), u"2.5");
}

TEST(Text, isEmptyForAnObjectWithoutAContext) {
    ScriptHost host;
    v8::Isolate* const isolate = v8::Isolate::GetCurrent();
    v8::HandleScope const handles(isolate);
    v8::Local<v8::Context> const context = v8::Context::New(isolate);
    v8::Local<v8::Value> object;
    {
        v8::Context::Scope const entered(context);
        object = v8::Array::New(isolate, 2);
        EXPECT_EQ(KxJsParser::_convertV8StringToStdString(object), u",");
    }
    ASSERT_FALSE(isolate->InContext());
    EXPECT_EQ(KxJsParser::_convertV8StringToStdString(object), u"");
    std::array<v8::Local<v8::Value>, 6> const others = {
        v8::Symbol::New(isolate), v8::Number::New(isolate, 2.5), v8::Null(isolate),
        v8::True(isolate),        v8::BigInt::New(isolate, 3),   v8::Undefined(isolate)};
    std::u16string all;
    for (auto const other : others) all += KxJsParser::_convertV8StringToStdString(other) + u';';
    EXPECT_EQ(all, u";2.5;null;true;3;undefined;");
}

TEST(Text, hasNoEngineStringBeyondItsLimit) {
    ScriptHost host;
    v8::HandleScope const handles(v8::Isolate::GetCurrent());
    // Refused by its length alone, before a single unit is read.
    char16_t const unit = u'x';
    std::u16string_view const text(&unit, static_cast<std::size_t>(v8::String::kMaxLength) + 1);
    EXPECT_TRUE(kx::toV8String(v8::Isolate::GetCurrent(), text).IsEmpty());
}

}  // namespace
