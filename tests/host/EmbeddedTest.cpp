// An application that runs V8 itself: its isolates are used as they are.
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include <libplatform/libplatform.h>
#include <v8.h>

#include "ScriptHost.h"

namespace {

/// An isolate of the application's, entered for the life of this object unless left earlier.
class ApplicationIsolate {
  public:
    ApplicationIsolate() {
        v8::Isolate::CreateParams parameters;
        parameters.array_buffer_allocator = allocator_.get();
        isolate_ = v8::Isolate::New(parameters);
        isolate_->Enter();
    }
    ~ApplicationIsolate() {
        if (isolate_ != nullptr) dispose();
    }
    ApplicationIsolate(ApplicationIsolate const&) = delete;
    ApplicationIsolate& operator=(ApplicationIsolate const&) = delete;

    v8::Isolate* get() const { return isolate_; }

    void dispose() {
        isolate_->Exit();
        isolate_->Dispose();
        isolate_ = nullptr;
    }

  private:
    std::unique_ptr<v8::ArrayBuffer::Allocator> allocator_{
        v8::ArrayBuffer::Allocator::NewDefaultAllocator()};
    v8::Isolate* isolate_ = nullptr;
};

TEST(Embedded, usesTheApplicationsIsolate) {
    ApplicationIsolate const application;
    ScriptHost host;
    EXPECT_EQ(v8::Isolate::GetCurrent(), application.get());
    host.bind(u"A", 1);
    EXPECT_EQ(host.eval(u"A+LEN('abc')"), u"4");
    host.host.reset();
    EXPECT_EQ(v8::Isolate::GetCurrent(), application.get());
}

TEST(Embedded, placesAFailureOfABuiltInFunctionAsTheApplicationsIsolateNotesCalls) {
    ApplicationIsolate const application;
    ScriptHost host;
    host.bind(u"A", 1);
    host.run(u"A + nope");
    ASSERT_NE(host.host.lastFailure(), nullptr);
    EXPECT_EQ(host.host.lastFailure()->line, 1);
    host.run(u"A + ROUND()");
    EXPECT_EQ(host.host.lastFailure()->line, 0);
    EXPECT_EQ(host.host.lastFailure()->message, u"ReferenceError: ROUND missing argument");
    application.get()->SetCaptureStackTraceForUncaughtExceptions(true);
    host.run(u"A + ROUND()");
    EXPECT_EQ(host.host.lastFailure()->line, 1);
    EXPECT_EQ(host.host.lastFailure()->column, 5);
}

TEST(Embedded, makesAHostWhileTheApplicationEndsAScript) {
    ApplicationIsolate const application;
    application.get()->TerminateExecution();
    KxJsParser host;
    application.get()->CancelTerminateExecution();
    host.initialize();
    std::u16string error;
    EXPECT_EQ(host.evaluate(u"LEN('abc')", error), u"3");
    EXPECT_EQ(error, u"");
    host.reset();
}

void resetOnce(v8::Isolate* isolate, void* host) {
    isolate->RemoveMicrotasksCompletedCallback(resetOnce, host);  // a reset runs a script, too
    static_cast<ScriptHost*>(host)->host.reset();
}

TEST(Embedded, mayBeResetByWhatTheEndOfAScriptCalls) {
    ApplicationIsolate const application;
    ScriptHost host;
    for (char16_t const* source :
         {u"kept = A; 'done'", u"Math.pow(A, 2) + 'done'", u"throw 'done'"}) {
        host.bind(u"A", 1);
        std::int32_t const script = host.parse(source);
        application.get()->AddMicrotasksCompletedCallback(resetOnce, &host);
        auto const outcome = host.execute(script);
        EXPECT_NE((outcome.result + outcome.error).find(u"done"), std::u16string::npos);
        EXPECT_THROW(host.execute(script), std::out_of_range);  // it was reset
    }
    EXPECT_EQ(host.eval(u"1+1"), u"2");
}

TEST(Embedded, outlivesTheApplicationsIsolate) {
    auto application = std::make_unique<ApplicationIsolate>();
    auto host = std::make_unique<ScriptHost>();
    host->bind(u"A", 1);
    std::int32_t const script = host->parse(u"A");
    EXPECT_EQ(host->execute(script).result, u"1");
    application->dispose();

    EXPECT_EQ(host->parse(u"1"), -1);
    EXPECT_NE(host->execute(script).error, u"");
    host->host.reset();
    host.reset();

    ApplicationIsolate const next;  // very likely at the same address
    ScriptHost hostOfNext;
    EXPECT_EQ(hostOfNext.eval(u"1+1"), u"2");
}

TEST(Embedded, refusesAHostOfAnotherIsolate) {
    ApplicationIsolate const outer;
    ScriptHost host;
    std::int32_t const script = host.parse(u"1");
    {
        ApplicationIsolate const inner;
        EXPECT_EQ(host.parse(u"2"), -1);
        EXPECT_NE(host.execute(script).error, u"");
        ScriptHost innerHost;
        EXPECT_EQ(innerHost.eval(u"3"), u"3");
    }
    EXPECT_EQ(host.execute(script).result, u"1");
}

TEST(Embedded, destroysAHostInsideAnotherIsolate) {
    ApplicationIsolate const outer;
    auto host = std::make_unique<ScriptHost>();
    host->bind(u"A", 1);
    EXPECT_EQ(host->eval(u"A"), u"1");
    {
        ApplicationIsolate const inner;
        host.reset();
    }
    ScriptHost again;
    EXPECT_EQ(again.eval(u"1+1"), u"2");
}

TEST(Embedded, makesAnIsolateForAThreadThatHasNone) {
    ApplicationIsolate const application;
    std::thread([] {
        EXPECT_EQ(v8::Isolate::TryGetCurrent(), nullptr);
        ScriptHost host;
        EXPECT_EQ(host.eval(u"LEN('abc')"), u"3");
        // Its memory is beyond the limits, and the application has not switched it off.
        EXPECT_EQ(host.eval(u"typeof WebAssembly"), u"undefined");
    }).join();
}

TEST(Embedded, runsInsideTheApplicationsContext) {
    ApplicationIsolate const application;
    v8::HandleScope const handles(application.get());
    v8::Local<v8::Context> const context = v8::Context::New(application.get());
    v8::Context::Scope const entered(context);
    ScriptHost host;
    EXPECT_EQ(host.eval(u"mine = 1; mine"), u"1");
    EXPECT_EQ(application.get()->GetCurrentContext(), context);
    EXPECT_FALSE(context->Global()
                     ->Has(context, KxJsParser::_convertStdStringToV8String(u"mine"))
                     .FromJust());
}

}  // namespace

int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    auto const platform = v8::platform::NewDefaultPlatform();
    v8::V8::InitializePlatform(platform.get());
    v8::V8::Initialize();
    return RUN_ALL_TESTS();
}
