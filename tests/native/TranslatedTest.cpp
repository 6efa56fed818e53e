// Translated formulas that are evaluated without V8 have the result that V8 gives.
#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "FormulaGenerator.h"
#include "NativeValue.h"
#include "SearchSize.h"
#include "TranslatedGenerator.h"
#include "expression/Parser.h"
#include "host/InProcessHost.h"
#include "host/ScriptHost.h"
#include "native/Program.h"
#include "native/translated/Functions.h"

namespace {

constexpr std::array<std::u16string_view, 6> kNames = {u"A", u"B", u"C", u"S", u"T", u"U"};

/// Variables as formulas expect them, and now and then of another kind.
KxJsVariable variableOf(FormulaGenerator& generator, std::mt19937_64& random,
                        std::u16string const& key) {
    bool const isNumber = key <= u"C";
    KxJsVariable variable = generator.value(key);
    for (int i = 0; i < 20; ++i) {
        bool const isText = variable.getType() == KxJsVariable::TYPE_OF_VAR_STRING;
        bool const isLogical = variable.getType() == KxJsVariable::TYPE_OF_VAR_BOOLEAN;
        if (random() % 16 == 0 || (!isLogical && isText != isNumber)) break;
        variable = generator.value(key);
    }
    return variable;
}

TEST(Translated, hasTheResultsOfTheEngine) {
    std::uint64_t const rounds = searchSize("KXJS_TRANSLATED_ROUNDS", 20'000);
    ScriptHost host;
    host.host.setNativeEvaluation(false);
    host.run(KxJsTranslator::runTimePart());
    kx::Evaluator evaluator;
    std::mt19937_64 random(17);
    FormulaGenerator values([&random] { return random(); });
    TranslatedGenerator generator([&random] { return random(); });
    std::uint64_t withProgram = 0;
    std::uint64_t compared = 0;
    std::uint64_t left = 0;
    for (std::uint64_t i = 0; i < rounds; ++i) {
        std::u16string const script = generator.translation();
        ASSERT_FALSE(script.empty()) << testing::PrintToString(generator.formula());
        auto const parsed = kx::parseExpression(script);
        auto const* const expression = std::get_if<kx::Expression>(&parsed);
        ASSERT_NE(expression, nullptr) << testing::PrintToString(script);
        auto const program = kx::Program::make(*expression, {kNames, true, true});
        if (!program) continue;
        ++withProgram;
        if (withProgram % 500 == 0) host.host.reset();
        for (int round = 0; round < 3; ++round) {
            std::vector<KxJsVariable> variables;
            for (auto const name : kNames) {
                variables.push_back(variableOf(values, random, std::u16string(name)));
                host.host.addSetVariable(variables.back());
            }
            std::vector<std::u16string> texts(variables.size());
            std::vector<kx::Value> inputs;
            std::u16string message = generator.formula() + u" => " + script;
            for (std::size_t k = 0; k < variables.size(); ++k) {
                inputs.push_back(valueOf(variables[k], texts[k]));
                message += u" " + variables[k].getKey() + u"=" + variables[k].valueToString();
            }
            kx::Value const* const value = evaluator.run(*program, inputs);
            auto const text = value != nullptr ? evaluator.textOf(*value) : std::nullopt;
            if (!text) {
                ++left;
                continue;
            }
            ++compared;
            ASSERT_EQ(evaluator.match().pattern, kx::Match::Pattern::none);
            auto const expected = host.run(script);
            ASSERT_EQ(std::u16string(*text).c_str(), expected.result)
                << testing::PrintToString(message);
            ASSERT_TRUE(expected.error.empty() || expected.error == u"Not A Number")
                << testing::PrintToString(message);
        }
    }
    EXPECT_GT(compared, rounds);
    if (std::getenv("KXJS_COUNT") != nullptr) {
        std::cout << withProgram << " programs, " << compared << " compared, " << left << " left\n";
    }
}

/// What `kx` has, by names between commas.
std::u16string membersOfRunTimePart() {
    ScriptHost host;
    host.run(KxJsTranslator::runTimePart());
    return host.eval(u"Object.getOwnPropertyNames(kx).sort().join()") + u",";
}

TEST(Translated, knowsTheEffectsOfAllFunctions) {
    std::u16string const members = membersOfRunTimePart();
    std::u16string unknown;
    std::size_t start = 0;
    for (std::size_t end = 0; (end = members.find(u',', start)) != std::u16string::npos;
         start = end + 1) {
        std::u16string const name = members.substr(start, end - start);
        if (!kx::isHarmlessRunTimeFunction(name)) unknown += name + u' ';
    }
    EXPECT_EQ(unknown, u"D exact rand type ");
}

TEST(Translated, hasOnlyFunctionsOfTheRunTimePart) {
    std::u16string const members = u"," + membersOfRunTimePart();
    for (bool const isExact : {false, true}) {
        for (auto const& functions :
             {kx::runTimeOperators(isExact), kx::runTimeTextFunctions(),
              kx::runTimeNumberFunctions(), kx::runTimeValueFunctions(isExact)}) {
            for (kx::Function const& function : functions) {
                std::u16string const name = u"," + std::u16string(function.name) + u",";
                EXPECT_NE(members.find(name), std::u16string::npos) << testing::PrintToString(name);
            }
        }
    }
}

std::u16string translated(char16_t const* formula) {
    return KxJsTranslator().translate(formula).javaScript;
}

TEST(Translated, runsWithoutTheEngineInHosts) {
    KxJsParser host;
    host.initialize();
    std::u16string error;
    host.evaluate(KxJsTranslator::runTimePart(), error);
    host.addSetVariable(KxJsVariable(u"A", 2.5));
    kx::InProcessHost const& inside = kx::inProcessHost(host);
    auto const before = inside.scriptsRun();
    EXPECT_EQ(host.evaluate(translated(u"STR(A*2,5)+'x'"), error), u"    5x");
    EXPECT_EQ(inside.scriptsRun(), before);
    // V8 runs formulas that need it or fail. Later ones are evaluated without V8 again.
    EXPECT_EQ(host.evaluate(translated(u"YEAR({^2020-01-31})"), error), u"2020");
    EXPECT_EQ(host.evaluate(translated(u"A+'x'"), error), u"");
    EXPECT_EQ(inside.scriptsRun(), before + 2);
    EXPECT_EQ(host.evaluate(translated(u"A=2.5"), error), u"true");
    EXPECT_EQ(inside.scriptsRun(), before + 2);
}

TEST(Translated, isLeftToTheEngineWhereTheRunTimePartMayBeAnother) {
    KxJsParser host;
    host.initialize();
    std::u16string error;
    host.evaluate(u"var kx={add:function(){return 7}}", error);
    EXPECT_EQ(host.evaluate(u"kx.add(1,2)", error), u"7");
    KxJsParser other;
    other.initialize();
    other.evaluate(KxJsTranslator::runTimePart(), error);
    other.evaluate(u"Object.defineProperty(this,'kx',{value:{add:function(){return 7}}})", error);
    EXPECT_EQ(other.evaluate(u"kx.add(1,2)", error), u"7");
}

}  // namespace
