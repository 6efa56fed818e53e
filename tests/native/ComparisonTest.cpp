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
#include "SearchSize.h"
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

/// Runs formulas with V8 alone, and tells what their regular expressions have left.
class Engine {
  public:
    Engine() {
        host_.host.setNativeEvaluation(false);
        forget();
    }

    /// Frees the parsed formulas.
    void forget() {
        host_.host.reset();
        before_ = host_.parse(u"'before'.match(/f/)");
        match_ = host_.parse(std::u16string(kMatch));
    }
    void bind(KxJsVariable const& variable) { host_.host.addSetVariable(variable); }
    void parse(std::u16string const& source) {
        parsed_ = host_.parse(source);
        ASSERT_NE(parsed_, -1) << testing::PrintToString(source);
    }
    void forgetMatch() { host_.execute(before_); }
    ScriptHost::Run run() { return host_.execute(parsed_); }
    std::u16string match() { return host_.execute(match_).result; }

  private:
    ScriptHost host_;
    std::int32_t before_ = -1;
    std::int32_t match_ = -1;
    std::int32_t parsed_ = -1;
};

/// The formula with the values of its variables.
std::u16string described(std::u16string const& formula,
                         std::vector<KxJsVariable> const& variables) {
    std::u16string text = formula;
    for (auto const& variable : variables) {
        text += u" " + variable.getKey() + u"=" + variable.valueToString();
    }
    return text;
}

TEST(Comparison, withTheEngine) {
    std::uint64_t const count = searchSize("KXJS_FORMULAS", 20'000);
    Engine engine;
    Engine other;
    kx::Evaluator evaluator;
    std::mt19937_64 random(searchSize("KXJS_FIRST_SEED", 16));
    FormulaGenerator generator([&random] { return random(); });
    std::uint64_t compared = 0;
    std::uint64_t left = 0;
    for (std::uint64_t i = 0; i < count; ++i) {
        std::u16string const formula = generator.formula();
        auto const parsed = kx::parseExpression(formula);
        auto const* expression = std::get_if<kx::Expression>(&parsed);
        ASSERT_NE(expression, nullptr) << testing::PrintToString(formula);
        auto const program = kx::Program::make(*expression, {kNames, true});
        if (!program) continue;
        if (i % 100 == 0) {
            engine.forget();
            other.forget();
        }
        for (int round = 0; round < 3; ++round) {
            std::vector<KxJsVariable> variables;
            std::vector<kx::Value> values;
            for (auto const name : kNames) {
                variables.push_back(generator.value(std::u16string(name)));
                engine.bind(variables.back());
            }
            if (round == 0) engine.parse(formula);
            std::vector<std::u16string> texts(variables.size());
            for (std::size_t k = 0; k < variables.size(); ++k) {
                values.push_back(valueOf(variables[k], texts[k]));
            }
            kx::Value const* const value = evaluator.run(*program, values);
            auto const text = value != nullptr ? evaluator.textOf(*value) : std::nullopt;
            if (!text) {
                ++left;
                continue;
            }
            ++compared;
            engine.forgetMatch();
            auto const expected = engine.run();
            ASSERT_EQ(std::u16string(*text), expected.result)
                << testing::PrintToString(described(formula, variables));
            ASSERT_TRUE(expected.error.empty() || expected.error == u"Not A Number")
                << testing::PrintToString(described(formula, variables));
            std::u16string const expectedMatch = engine.match();
            other.forgetMatch();
            kx::Match const& match = evaluator.match();
            if (match.pattern != kx::Match::Pattern::none) {
                other.parse(quoted(match.subject) + scriptFor(match.pattern));
                other.run();
            }
            ASSERT_EQ(other.match(), expectedMatch)
                << testing::PrintToString(described(formula, variables));
        }
    }
    EXPECT_GT(compared, count / 2);
    RecordProperty("compared", std::to_string(compared));
    RecordProperty("left", std::to_string(left));
}

}  // namespace
