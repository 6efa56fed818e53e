// What is evaluated without V8 has the result that V8 gives. Compared on generated formulas, with
// values of all types.
#include <array>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "FormulaGenerator.h"
#include "NativeValue.h"
#include "expression/Parser.h"
#include "host/ScriptHost.h"
#include "native/Program.h"

namespace {

constexpr std::array<std::u16string_view, 6> kNames = {u"A", u"B", u"C", u"S", u"T", u"U"};

/// What a regular expression of the last run has left, as scripts see it.
constexpr std::u16string_view kMatch =
    u"[RegExp.lastMatch,RegExp.leftContext,RegExp.rightContext,RegExp.$_].join('|')";

/// What it leaves when the match is done again.
std::u16string scriptFor(kx::Match::Pattern pattern) {
    switch (pattern) {
        case kx::Match::Pattern::leadingBlanks:
            return u".replace(/^\\s+/g,'')";
        case kx::Match::Pattern::trailingBlanks:
            return u".replace(/\\s+$/g,'')";
        case kx::Match::Pattern::blanksAround:
            return u".replace(/^\\s+|\\s+$/g,'')";
        case kx::Match::Pattern::unit:
            return u".search(/[^]/)";
        default:
            return u".match(/-?\\d+\\.?\\d*/)";
    }
}

/// The text as a literal: a variable would show its beginning only.
std::u16string quoted(std::u16string_view text) {
    constexpr std::u16string_view kDigits = u"0123456789abcdef";
    std::u16string literal = u"'";
    for (char16_t const unit : text) {
        literal += u"\\u";
        for (int shift = 12; shift >= 0; shift -= 4) literal += kDigits[(unit >> shift) & 15];
    }
    return literal + u"'";
}

TEST(Comparison, withTheEngine) {
    ScriptHost host;
    ScriptHost other;
    kx::Evaluator evaluator;
    std::mt19937_64 random(16);
    FormulaGenerator generator([&random] { return random(); });
    int compared = 0;
    int left = 0;
    for (int i = 0; i < 20'000; ++i) {
        std::u16string const formula = generator.formula();
        auto const parsed = kx::parseExpression(formula);
        auto const* expression = std::get_if<kx::Expression>(&parsed);
        ASSERT_NE(expression, nullptr) << testing::PrintToString(formula);
        auto const program = kx::Program::make(*expression, {kNames, true});
        if (program == nullptr) continue;
        if (i % 500 == 0) host.host.reset();
        for (int round = 0; round < 3; ++round) {
            std::vector<KxJsVariable> variables;
            std::vector<kx::Value> values;
            for (auto const name : kNames) {
                variables.push_back(generator.value(std::u16string(name)));
                host.host.addSetVariable(variables.back());
            }
            std::vector<std::u16string> texts(variables.size());
            for (std::size_t k = 0; k < variables.size(); ++k) {
                values.push_back(valueOf(variables[k], texts[k]));
            }
            kx::Value value;
            bool const isDone = evaluator.run(*program, values, value);
            auto const text = isDone ? evaluator.textOf(value) : std::nullopt;
            if (!text) {
                ++left;
                continue;
            }
            ++compared;
            std::u16string const message =
                formula + u" A=" + variables[0].valueToString() + u" B=" +
                variables[1].valueToString() + u" C=" + variables[2].valueToString() + u" S=" +
                variables[3].valueToString() + u" T=" + variables[4].valueToString() + u" U=" +
                variables[5].valueToString();
            kx::Match const& match = evaluator.match();
            host.eval(u"'before'.match(/f/)");
            auto const expected = host.run(formula);
            auto const expectedMatch = host.eval(std::u16string(kMatch));
            ASSERT_EQ(std::u16string(*text).c_str(), expected.result)
                << testing::PrintToString(message);
            ASSERT_TRUE(expected.error.empty() || expected.error == u"Not A Number")
                << testing::PrintToString(message);
            other.eval(u"'before'.match(/f/)");
            if (match.pattern != kx::Match::Pattern::none) {
                other.eval(quoted(match.subject) + scriptFor(match.pattern));
            }
            ASSERT_EQ(other.eval(std::u16string(kMatch)), expectedMatch)
                << testing::PrintToString(message);
        }
    }
    EXPECT_GT(compared, 10'000);
    RecordProperty("compared", compared);
    RecordProperty("left", left);
    if (std::getenv("KXJS_COUNT") != nullptr) printf("%d compared, %d left\n", compared, left);
}

}  // namespace
