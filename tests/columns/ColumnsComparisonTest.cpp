// Whole columns against records run one by one: the results and the error texts are the same, for
// every formula and every record.
#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "../convert/RealFormulas.h"
#include "../library/SplitExample.h"
#include "../native/FormulaGenerator.h"
#include "../support/Utf8.h"
#include "ColumnTable.h"
#include "ScriptGenerator.h"
#include "convert/Converter.h"
#include "library/Catalogues.h"
#include "support/HostKind.h"

namespace {

constexpr std::size_t kMostColumns = 8;

/// The ways that isolated hosts have of their own need fewer formulas to be seen.
std::size_t const kOneOf = areHostsIsolated() ? 10 : 1;

/// Two hosts in the same state, one for each way.
class Comparison {
  public:
    enum class Hosts : std::uint8_t { withScripts, new_ };

    explicit Comparison(Hosts hosts = Hosts::withScripts) {
        // Where scripts have run, V8 evaluates all formulas anyhow.
        first_.setNativeEvaluation(false);
        for (KxJsParser* host : {&first_, &second_}) {
            host->initialize();
            if (hosts == Hosts::new_) continue;
            // Functions and values of the application's own, one of which reads a column.
            run(*host, u"var COUNT=0;function netto(){return typeof A==='number'?A*0.8:'none';}");
            // The clock must not matter.
            run(*host, u"Math.random=function(){return 0.5;};");
        }
    }

    void compare(ColumnTable const& table, std::u16string const& source) {
        SCOPED_TRACE(kx::test::toUtf8(source));
        forget();
        auto const expected = table.oneByOne(first_, source);
        auto const actual = table.atOnce(second_, source);
        ASSERT_EQ(expected.size(), actual.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(kx::test::toUtf8(expected[i].text), kx::test::toUtf8(actual[i].text))
                << "record " << i;
            EXPECT_EQ(kx::test::toUtf8(expected[i].error), kx::test::toUtf8(actual[i].error))
                << "record " << i;
            failing_ += expected[i].error.empty() ? 0 : 1;
        }
        compared_ += expected.size();
    }

    /// With an empty statement behind it, a formula runs record by record, and gives the same
    /// numbers.
    void compareNumbers(ColumnTable const& table, std::u16string const& source) {
        SCOPED_TRACE(kx::test::toUtf8(source));
        forget();
        auto const expected = table.numbers(first_, source + u"\n;;");
        auto const actual = table.numbers(second_, source);
        if (actual.size() == 1) return;  // does not compile
        ASSERT_EQ(expected.size(), actual.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(kx::test::toUtf8(expected[i].text), kx::test::toUtf8(actual[i].text))
                << "record " << i;
            EXPECT_EQ(expected[i].error.empty(), actual[i].error.empty()) << "record " << i;
        }
    }

    std::size_t compared() const { return compared_; }
    std::size_t failing() const { return failing_; }

  private:
    static void run(KxJsParser& host, std::u16string const& source) {
        std::u16string error;
        host.execute(host.parse(source, error), error);
        ASSERT_EQ(error, u"");
    }

    void forget() {
        for (KxJsParser* host : {&first_, &second_}) {
            host->reset();
            host->addSetVariable({u"RATE", 1.25});
        }
    }

    KxJsParser first_ = makeHost();
    KxJsParser second_ = makeHost();
    std::size_t compared_ = 0;
    std::size_t failing_ = 0;
};

/// The names in `source` that may be variables.
std::vector<std::u16string> namesIn(std::u16string const& source) {
    static std::set<std::string> const kKnown = {"Math", "String", "Number", "function", "return",
                                                 "this", "var",    "if",     "else"};
    std::string const text = kx::test::toUtf8(source);
    static std::regex const kName(R"([A-Za-z_]\w*(?!\w|\s*\())");
    std::vector<std::u16string> names;
    for (std::sregex_iterator i(text.begin(), text.end(), kName), end; i != end; ++i) {
        std::string const name = i->str();
        if (kKnown.contains(name) || names.size() == kMostColumns) continue;
        names.emplace_back(name.begin(), name.end());
    }
    return names;
}

TEST(ColumnsComparison, holdsForRealFormulas) {
    std::mt19937_64 random(20);
    Comparison comparison;
    auto const formulas = readRealFormulas();
    for (std::size_t i = 0; i < formulas.size(); i += kOneOf) {
        std::u16string const source = Converter::_convert(formulas[i].c_str());
        ColumnTable table(random);
        for (std::u16string const& name : namesIn(source)) {
            table.add(name, ColumnTable::Range::small);
        }
        comparison.compare(table, source);
        comparison.compareNumbers(table, source);
    }
    EXPECT_GT(comparison.compared(), formulas.size() * 3 / kOneOf);
    EXPECT_LT(comparison.failing(), comparison.compared());
}

TEST(ColumnsComparison, holdsForTheExamplesOfTheCatalogues) {
    std::mt19937_64 random(21);
    Comparison comparison;
    static std::regex const kArgument(R"('[^']*'|\b[0-9]+(\.[0-9]+)?\b)");
    for (auto const& catalogue :
         {buildMathFunctions(), buildStringFunctions(), buildMiscFunctions()}) {
        for (KxJsFunction const& function : catalogue) {
            for (std::u16string const& text : function.getExamples()) {
                auto const example = kx::test::splitExample(text);
                if (!example) continue;
                ColumnTable table(random);
                for (char16_t const* name : {u"QA", u"QB"}) {
                    table.add(name, ColumnTable::Range::small);
                }
                comparison.compare(table, example->call);
                // The same call on columns.
                std::string const call = kx::test::toUtf8(example->call);
                std::string const onColumns =
                    std::regex_replace(std::regex_replace(call, kArgument, "QA",
                                                          std::regex_constants::format_first_only),
                                       kArgument, "QB", std::regex_constants::format_first_only);
                std::u16string const source(onColumns.begin(), onColumns.end());
                comparison.compare(table, source);
                comparison.compareNumbers(table, source);
            }
        }
    }
    EXPECT_GT(comparison.compared(), 1000U);
}

TEST(ColumnsComparison, holdsForGeneratedFormulas) {
    std::mt19937_64 random(22);
    Comparison comparison;
    ScriptGenerator generator(random);
    std::size_t const formulas = 6000 / kOneOf;
    for (std::size_t i = 0; i < formulas; ++i) {
        std::u16string const source = generator.next();
        ColumnTable table(random);
        for (char16_t const* name : {u"A", u"B", u"C", u"D", u"NAME", u"E", u"left", u"length"}) {
            table.add(name, ColumnTable::Range::full);
        }
        comparison.compare(table, source);
        if (i % 4 == 0) comparison.compareNumbers(table, source);
    }
    EXPECT_GT(comparison.failing(), formulas / 6);
    EXPECT_GT(comparison.compared() - comparison.failing(), formulas * 5 / 3);
}

/// Whether a limit of memory may end the evaluation.
bool mayBeEndless(std::u16string const& source) {
    auto const names = {u"REPEAT(", u"SPACE(", u"STRZ(", u"RPAD(", u"BUMP(", u"LPAD(", u"STR("};
    return std::any_of(names.begin(), names.end(),
                       [&](auto const* name) { return source.find(name) != std::u16string::npos; });
}

TEST(ColumnsComparison, holdsForFormulasThatNeedNoV8) {
    std::mt19937_64 random(24);
    FormulaGenerator generator([&random] { return random(); });
    std::size_t const hosts = 400 / kOneOf;
    for (std::size_t i = 0; i < hosts; ++i) {
        Comparison comparison(Comparison::Hosts::new_);
        for (int k = 0; k < 4; ++k) {
            ColumnTable table(random);
            for (char16_t const* name : {u"A", u"B", u"C", u"S", u"T", u"U"}) {
                table.add(name, ColumnTable::Range::full);
            }
            std::u16string const source = generator.formula();
            if (mayBeEndless(source)) continue;
            comparison.compare(table, source);
            if (i % 4 == 0) comparison.compareNumbers(table, source);
        }
    }
}

// Columns take the place of what V8 and the built-in functions have under their names, so
// each formula has hosts of its own.
TEST(ColumnsComparison, holdsForColumnsThatAreCalledLikeGlobals) {
    std::mt19937_64 random(23);
    ScriptGenerator generator(random);
    for (char16_t const* name :
         {u"Math",     u"undefined",  u"NaN",      u"IIF",       u"COND",
          u"MAX",      u"eval",       u"Number",   u"String",    u"arguments",
          u"toString", u"globalThis", u"RATE",     u"async",     u"await",
          u"let",      u"of",         u"Infinity", u"__proto__", u"constructor"}) {
        for (int i = 0; i < 25; ++i) {
            Comparison comparison;
            ColumnTable table(random);
            for (char16_t const* other : {u"A", u"B", u"E", name}) {
                table.add(other, ColumnTable::Range::small);
            }
            comparison.compare(table, generator.next() + u"+" + name);
            comparison.compare(table, std::u16string(name) + u"+Math.abs?.(E)*IIF(A,B,E)");
        }
    }
}

}  // namespace
