// Isolated hosts evaluate plain expressions without V8 where hosts in process do. The worker's
// memory shows it: V8 takes more for compiled formulas than the worker may take here.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "isolated/IsolatedFixture.h"

namespace {

KxJsParser makeNarrowHost() {
    KxJsIsolation isolation = testIsolation();
    isolation.memoryLimit = std::uint64_t{512} << 10;
    return KxJsParser(isolation);
}

/// Evaluates many formulas. Returns the first error text.
std::u16string runMany(KxJsParser& host) {
    host.addSetVariable(KxJsVariable(u"A", 5));
    std::u16string error;
    for (int i = 0; i < 5000 && error.empty(); ++i) {
        std::string const number = std::to_string(i);
        std::u16string const text(number.begin(), number.end());
        host.evaluate(u"A*2+" + text, error);
    }
    return error;
}

constexpr std::u16string_view kEnd = u"The script was ended: its worker process ended";

TEST(IsolatedNativeEvaluation, needsNoMemoryOfTheEngine) {
    KxJsParser host = makeNarrowHost();
    host.setNativeEvaluation(true);
    EXPECT_EQ(runMany(host), u"");
}

TEST(IsolatedNativeEvaluation, isSwitchedOff) {
    KxJsParser host = makeNarrowHost();
    host.setNativeEvaluation(false);
    EXPECT_TRUE(runMany(host).starts_with(kEnd));
    // In the new worker too.
    host.reset();
    EXPECT_TRUE(runMany(host).starts_with(kEnd));
}

TEST(IsolatedNativeEvaluation, isAsTheApplicationsEnvironmentSays) {
    KxJsParser host = makeNarrowHost();
    char const* const value = std::getenv("KXJS_NATIVE_EVALUATION");
    bool const isOff = value != nullptr && std::string_view(value) == "off";
    EXPECT_EQ(runMany(host).starts_with(kEnd), isOff);
}

}  // namespace
