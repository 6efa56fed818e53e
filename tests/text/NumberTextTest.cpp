#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

#include "engine/Text.h"
#include "host/ScriptHost.h"
#include "text/NumberText.h"

namespace {

/// Compares with V8's own conversion.
class NumberText : public testing::Test {
  protected:
    void expectEnginesText(double number) {
        v8::HandleScope const handles(isolate_);
        std::u16string const expected =
            kx::fromV8String(isolate_, v8::Number::New(isolate_, number)
                                           ->ToString(isolate_->GetCurrentContext())
                                           .ToLocalChecked());
        std::u16string const text = kx::numberToText(number);
        if (text != expected) {
            ADD_FAILURE() << std::hexfloat << number << " is "
                          << std::string(text.begin(), text.end()) << ", V8 writes "
                          << std::string(expected.begin(), expected.end());
        }
    }

    void expectNeighbourhood(double number) {
        double below = number;
        double above = number;
        for (int i = 0; i < 4; ++i) {
            for (double const near : {below, above}) {
                expectEnginesText(near);
                expectEnginesText(-near);
            }
            below = std::nextafter(below, 0.0);
            above = std::nextafter(above, std::numeric_limits<double>::infinity());
        }
    }

  private:
    ScriptHost host_;  // makes an isolate for the thread
    v8::Isolate* isolate_ = v8::Isolate::GetCurrent();
    v8::HandleScope handles_{isolate_};
    v8::Context::Scope entered_{v8::Context::New(isolate_)};
};

TEST_F(NumberText, writesSpecialNumbers) {
    EXPECT_EQ(kx::numberToText(std::numeric_limits<double>::quiet_NaN()), u"NaN");
    EXPECT_EQ(kx::numberToText(-std::numeric_limits<double>::quiet_NaN()), u"NaN");
    EXPECT_EQ(kx::numberToText(std::numeric_limits<double>::infinity()), u"Infinity");
    EXPECT_EQ(kx::numberToText(-std::numeric_limits<double>::infinity()), u"-Infinity");
    EXPECT_EQ(kx::numberToText(0.0), u"0");
    EXPECT_EQ(kx::numberToText(-0.0), u"0");
}

TEST_F(NumberText, switchesTheLayoutWhereJavaScriptDoes) {
    EXPECT_EQ(kx::numberToText(123456789012345680000.0), u"123456789012345680000");
    EXPECT_EQ(kx::numberToText(1e21), u"1e+21");
    EXPECT_EQ(kx::numberToText(-1.5e21), u"-1.5e+21");
    EXPECT_EQ(kx::numberToText(0.000001), u"0.000001");
    EXPECT_EQ(kx::numberToText(0.0000001), u"1e-7");
    EXPECT_EQ(kx::numberToText(1.25e-7), u"1.25e-7");
    EXPECT_EQ(kx::numberToText(-123.456), u"-123.456");
    EXPECT_EQ(kx::numberToText(5e-324), u"5e-324");
}

TEST_F(NumberText, equalsTheEnginesAroundPowersOfTenAndTwo) {
    for (int exponent = -324; exponent <= 308; ++exponent) {
        expectNeighbourhood(std::strtod(("1e" + std::to_string(exponent)).c_str(), nullptr));
    }
    for (int exponent = -1074; exponent <= 1023; ++exponent) {
        expectNeighbourhood(std::ldexp(1.0, exponent));
    }
    expectNeighbourhood(std::numeric_limits<double>::max());
}

TEST_F(NumberText, equalsTheEnginesForWholeNumbers) {
    for (int i = -1000; i <= 100000; ++i) expectEnginesText(i);
    std::mt19937_64 random(1);
    for (int i = 0; i < 100000; ++i) {
        expectEnginesText(static_cast<double>(static_cast<std::int64_t>(random()) >> (i % 64)));
    }
}

TEST_F(NumberText, equalsTheEnginesForDecimals) {
    for (int i = 0; i < 100000; ++i) {
        expectEnginesText(i / 100.0);
        expectEnginesText(i / 1000.0 * 1.21);
        expectEnginesText(i * 1e-9);
    }
}

TEST_F(NumberText, equalsTheEnginesForMillionths) {
    std::mt19937_64 random(4);
    for (int i = 0; i < 200000; ++i) {
        // Up to, around and beyond what is written without a search for the shortest digits.
        auto const millionths = static_cast<double>(random() >> (random() % 64));
        expectEnginesText(millionths / 1e6);
        expectEnginesText(-std::nextafter(millionths / 1e6, 0));
        expectEnginesText(millionths / 1e7);
    }
    for (double const edge : {1e9, 999999999.999999, 1e15 / 1e6, 1e-6, 9.999999e-7, 0.1, 0.3}) {
        expectNeighbourhood(edge);
    }
}

TEST_F(NumberText, equalsTheEnginesForSubnormals) {
    std::mt19937_64 random(2);
    for (int i = 0; i < 100000; ++i) {
        expectEnginesText(std::bit_cast<double>(random() >> (12 + i % 52)));
    }
}

TEST_F(NumberText, equalsTheEnginesForRandomBits) {
    // The default is sized for every test run; KXJS_NUMBERS asks for more, KXJS_SEED for others.
    char const* const asked = std::getenv("KXJS_NUMBERS");
    long const count = asked == nullptr ? 1'000'000 : std::strtol(asked, nullptr, 10);
    char const* const seed = std::getenv("KXJS_SEED");
    std::mt19937_64 random(seed == nullptr ? 3 : std::strtoul(seed, nullptr, 10));
    for (long i = 0; i < count; ++i) expectEnginesText(std::bit_cast<double>(random()));
}

TEST(DecimalText, writesWholeNumbers) {
    EXPECT_EQ(kx::decimalText(0), u"0");
    EXPECT_EQ(kx::decimalText(-512), u"-512");
    EXPECT_EQ(kx::decimalText(std::numeric_limits<std::int64_t>::max()), u"9223372036854775807");
    EXPECT_EQ(kx::decimalText(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
}

}  // namespace
