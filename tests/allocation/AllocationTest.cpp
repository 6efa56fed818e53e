// Every allocation of the library fails once, in every public operation: std::bad_alloc comes out,
// or an error text, and the same objects then do the same thing rightly.
#include <chrono>
#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

#include "FailingNew.h"
#include "columns/KxJsColumns.h"
#include "convert/Converter.h"
#include "host/KxJsParser.h"
#include "host/KxJsVariable.h"
#include "library/Catalogues.h"
#include "library/KxJsFunction.h"
#include "library/Prelude.h"

namespace {

using Text = std::u16string;

std::u16string const kLong = u"a text that is longer than what fits into a string without memory";

struct Answer {
    Text result;
    Text error;
    bool operator==(Answer const&) const = default;
};
void PrintTo(Answer const& answer, std::ostream* out) {
    *out << std::string(answer.result.begin(), answer.result.end()).substr(0, 200) << " / "
         << std::string(answer.error.begin(), answer.error.end()).substr(0, 200);
}

/// An operation on one host, which `prepare` has made ready.
struct Operation {
    char const* name;
    std::function<void(KxJsParser&)> prepare;
    std::function<Answer(KxJsParser&)> act;
};
void PrintTo(Operation const& operation, std::ostream* out) { *out << operation.name; }

Answer parseAndExecute(KxJsParser& host, Text const& source) {
    Answer run;
    std::int32_t const index = host.parse(source, run.error);
    if (index != -1) run.result = host.execute(index, run.error);
    return run;
}

void bind(KxJsParser& host) {
    host.addSetVariable(KxJsVariable(u"NUMBER", 5));
    host.addSetVariable(KxJsVariable(u"aTextVariableWithALongName", kLong));
}

Text joined(std::vector<Text> const& texts) {
    Text all;
    for (Text const& text : texts) all += text + u"|";
    return all;
}

Text joined(std::vector<KxJsFunction> const& catalogue) {
    Text all;
    for (KxJsFunction const& function : catalogue) {
        all += function.toJavaScript() + function.toHtmlFragment(true) + function.toHtmlPage();
    }
    return all;
}

/// The results of `formula` over a column, and the messages of the records that fail.
std::vector<Text> evaluated(KxJsParser& host, Text const& formula, Text& error) {
    std::vector<Text> const values(20, u"name" + kLong);
    KxJsColumns columns(host);
    columns.bind(u"aColumnWithALongName", values.data());
    std::vector<Text> results(values.size());
    if (!columns.compile(formula, error)) return {};
    auto const outcome = columns.evaluate(results.size(), results.data());
    error = outcome.error;
    for (auto const& failure : outcome.failures) results.push_back(failure.message);
    return results;
}

void nothing(KxJsParser& /*host*/) {}

std::vector<Operation> const kOperations{
    {"makeAHost", nothing,
     [](KxJsParser&) {
         KxJsParser other;
         return Answer{u"made", u""};
     }},
    {"initialize", nothing,
     [](KxJsParser& host) {
         host.initialize();
         return parseAndExecute(host, u"LEN('abc')");
     }},
    {"bind", nothing,
     [](KxJsParser& host) {
         bind(host);
         return parseAndExecute(host, u"NUMBER + aTextVariableWithALongName");
     }},
    {"parseAndExecute", bind,
     [](KxJsParser& host) {
         return parseAndExecute(host, u"aTextVariableWithALongName.repeat(3) + NUMBER / 3");
     }},
    {"evaluate", bind,
     [](KxJsParser& host) {
         Answer run;
         run.result =
             host.evaluate(u"aTextVariableWithALongName.repeat(3) + NUMBER / 3", run.error);
         return run;
     }},
    {"evaluateWhatFails", bind,
     [](KxJsParser& host) {
         Answer run;
         run.result = host.evaluate(u"NUMBER + missingNameThatIsLong", run.error);
         return run;
     }},
    {"syntaxError", bind, [](KxJsParser& host) { return parseAndExecute(host, u"NUMBER +* 2"); }},
    {"runTimeError", bind,
     [](KxJsParser& host) { return parseAndExecute(host, u"NUMBER + missingNameThatIsLong"); }},
    {"errorOfALibraryFunction", bind,
     [](KxJsParser& host) { return parseAndExecute(host, u"STR(NUMBER, 'x', missingName)"); }},
    {"manyCarriers", bind,
     [](KxJsParser& host) {
         Answer run;
         for (int i = 0; i < 100; ++i) run = parseAndExecute(host, u"NUMBER");
         return run;
     }},
    {"reset", bind,
     [](KxJsParser& host) {
         host.reset();
         return parseAndExecute(host, u"typeof NUMBER + 1");
     }},
    {"limits", bind,
     [](KxJsParser& host) {
         host.setTimeLimit(std::chrono::milliseconds(10));
         host.setMemoryLimit(std::size_t{512} << 20);
         return parseAndExecute(host, u"for (;;);");
     }},
    {"columns", bind,
     [](KxJsParser& host) {
         Answer run;
         run.result =
             joined(evaluated(host, u"aColumnWithALongName+IIF(NUMBER>2,'a','b')", run.error));
         return run;
     }},
    {"failingColumns", bind,
     [](KxJsParser& host) {
         Answer run;
         run.result = joined(
             evaluated(host, u"IIF(aColumnWithALongName,1,2)+missingNameThatIsLong", run.error));
         return run;
     }},
    {"extract", nothing,
     [](KxJsParser&) {
         Answer run;
         run.result = joined(KxJsParser::_extractVariable(
             u"firstMissingName + secondMissingName + LEN(third)", run.error));
         return run;
     }},
    {"extractInTime", nothing,
     [](KxJsParser&) {
         Answer run;
         run.result = joined(
             KxJsParser::_extractVariable(u"first + second", run.error, std::chrono::seconds(60)));
         return run;
     }},
    {"convert", nothing,
     [](KxJsParser&) {
         return Answer{
             Converter::_convert(u"IIF(SIN(x)^2>=2 .AND. NOT y,LEFT(z,2),STRZ(MOD(a,b),5)) "
                                 u"'a quoted text' <> 12.5^3"),
             u""};
     }},
    {"variables", nothing,
     [](KxJsParser&) {
         KxJsVariable variable(kLong, kLong);
         KxJsVariable const copy(variable);
         variable.setValue(2.5);
         variable = copy;
         return Answer{variable.getKey() + variable.getStrValue() + variable.valueToString(), u""};
     }},
    {"catalogues", nothing,
     [](KxJsParser&) {
         return Answer{joined(buildMathFunctions()) + joined(buildMiscFunctions()), u""};
     }},
    {"prelude", nothing,
     [](KxJsParser&) {
         return Answer{joined(buildPrelude()), u""};
     }},
    {"ownFunction", nothing,
     [](KxJsParser&) {
         KxJsFunction function;
         function.setName(kLong);
         function.setCategory(kLong);
         function.setDescription(kLong);
         function.setReturnDescription(kLong);
         function.addParameter({kLong, kLong});
         function.addExample(kLong);
         function.setBody(kLong);
         return Answer{
             function.toJavaScript() + function.toHtmlFragment(true) + function.toHtmlPage(), u""};
     }},
    {"documentation", nothing,
     [](KxJsParser&) {
         return Answer{KxJsParser::_getUserDocumentation(true, false), u""};
     }},
};

/// Lets the allocation `which` of `operation` fail, then tries again. Whether there was one.
bool failOnce(Operation const& operation, std::size_t which, Answer const& expected) {
    KxJsParser host;
    host.initialize();
    operation.prepare(host);
    bool hasFailed = false;
    try {
        FailingNew const failing(which);
        Answer const run = operation.act(host);
        hasFailed = FailingNew::hasFailed();
        if (!hasFailed) {
            EXPECT_EQ(run, expected);
        }
    } catch (std::bad_alloc const&) {
        hasFailed = true;
    }
    if (!hasFailed) return false;
    operation.prepare(host);
    EXPECT_EQ(operation.act(host), expected) << operation.name << ", allocation " << which;
    return !testing::Test::HasFailure();
}

class Allocation : public testing::TestWithParam<Operation> {};

TEST_P(Allocation, mayFailAndNothingIsLost) {
    Answer expected;
    {
        KxJsParser host;
        host.initialize();
        GetParam().prepare(host);
        expected = GetParam().act(host);
    }
    std::size_t which = 1;
    // What allocates thousands of times does so in the same way again and again.
    for (; failOnce(GetParam(), which, expected); which += which / 100 + 1) {
    }
    EXPECT_GT(which, 1U) << "the library has allocated nothing";
}

INSTANTIATE_TEST_SUITE_P(of, Allocation, testing::ValuesIn(kOperations),
                         [](auto const& info) { return std::string(info.param.name); });

/// The first host of a thread, for which the library makes an engine isolate.
TEST(FirstHostOfAThread, mayFailAndTheNextOneIsMade) {
    bool hasFailed = true;
    std::size_t which = 1;
    for (; hasFailed && !HasFailure(); ++which) {
        std::thread([&] {
            hasFailed = false;
            try {
                FailingNew const failing(which);
                KxJsParser const host;
                hasFailed = FailingNew::hasFailed();
            } catch (std::bad_alloc const&) {
                hasFailed = true;
            }
            KxJsParser host;
            host.initialize();
            EXPECT_EQ(parseAndExecute(host, u"LEN('abc')"), (Answer{u"3", u""})) << which;
        }).join();
    }
    EXPECT_GT(which, 3U);
}

/// A host that is destroyed elsewhere leaves its handles to its own thread.
TEST(DestructionOnAnotherThread, doesNotFail) {
    for (std::size_t which = 1; which < 10; ++which) {
        auto host = std::make_unique<KxJsParser>();
        bind(*host);
        parseAndExecute(*host, u"NUMBER");
        std::thread([&] {
            FailingNew const failing(which);
            host.reset();
        }).join();
        KxJsParser next;
        EXPECT_EQ(parseAndExecute(next, u"1+1"), (Answer{u"2", u""}));
    }
}

/// The same columns go on, whatever they were doing when memory was out.
TEST(Columns, mayFailAndEvaluateAgain) {
    std::vector<double> const numbers(20, 2);
    std::vector<double> results(numbers.size());
    std::vector<Text> texts(numbers.size());
    std::size_t which = 1;
    for (bool hasFailed = true; hasFailed && !HasFailure(); ++which) {
        KxJsParser host;
        host.initialize();
        KxJsColumns columns(host);
        columns.bind(u"aColumnWithALongName", numbers.data());
        Text error;
        ASSERT_TRUE(columns.compile(u"aColumnWithALongName*2", error));
        columns.evaluate(results.size(), results.data());
        try {
            FailingNew const failing(which);
            // Another type of results wants another loop.
            columns.evaluate(texts.size(), texts.data());
            columns.compile(u"aColumnWithALongName*3+1", error);
            hasFailed = FailingNew::hasFailed();
        } catch (std::bad_alloc const&) {
            hasFailed = true;
        }
        if (columns.evaluate(results.size(), results.data()).error.empty()) {
            EXPECT_TRUE(results[5] == 4 || results[5] == 7) << which;
        }
        columns.evaluate(texts.size(), texts.data());
        EXPECT_TRUE(columns.compile(u"aColumnWithALongName*4", error)) << which;
        EXPECT_EQ(columns.evaluate(texts.size(), texts.data()).error, u"") << which;
        EXPECT_EQ(texts[5], u"8") << which;
        EXPECT_EQ(host.parse(u"1", error), 0) << which;  // no script of theirs is in the store
    }
    EXPECT_GT(which, 20U);
}

/// What a failed assignment leaves is what was there.
TEST(Assignment, happensAsAWholeOrNotAtAll) {
    KxJsVariable const text(kLong, kLong);
    for (std::size_t which = 1;; ++which) {
        KxJsVariable number(u"N", 5);
        try {
            FailingNew const failing(which);
            number = text;
            break;
        } catch (std::bad_alloc const&) {
            EXPECT_EQ(number.getType(), KxJsVariable::TYPE_OF_VAR_LONG);
            EXPECT_EQ(number.getLongValue(), 5);
            EXPECT_EQ(number.getStrValue(), u"");
        }
    }
}

TEST(Binding, happensOrNot) {
    KxJsVariable const text(kLong, kLong);
    for (std::size_t which = 1;; ++which) {
        KxJsParser host;
        try {
            FailingNew const failing(which);
            host.addSetVariable(text);
            break;
        } catch (std::bad_alloc const&) {
            EXPECT_FALSE(host.variableExist(kLong));
        }
    }
}

}  // namespace
