#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "columns/KxJsColumns.h"
#include "host/ScriptHost.h"

using Texts = std::vector<std::u16string>;

inline constexpr std::size_t kMany = 5000;  // more than are run in one go

/// Columns over a host of their own.
class ColumnsFixture : public testing::Test {
  protected:
    KxJsColumns::Outcome texts(std::u16string const& source, std::size_t count) {
        results.assign(count, u"before");
        std::u16string error;
        EXPECT_TRUE(columns.compile(source, error));
        EXPECT_EQ(error, u"");
        return columns.evaluate(count, results.data());
    }

    /// The error of record `record`, which is the only one that fails.
    static std::u16string onlyFailure(KxJsColumns::Outcome const& outcome, std::size_t record) {
        if (outcome.failures.size() != 1) return u"not one failure";
        if (outcome.failures[0].record != record) return u"another record";
        return outcome.failures[0].error.str();
    }

    /// Compiles `formula` over a column `name` of the numbers 1 to 5, runs `script`, evaluates, and
    /// compares with what the same gives one by one.
    static void compareWithOneByOne(std::u16string const& name, std::u16string const& formula,
                                    std::u16string const& script) {
        SCOPED_TRACE(testing::PrintToString(formula + u" / " + script));
        std::vector<double> const values = {1, 2, 3, 4, 5};
        ScriptHost other;
        KxJsColumns numbers(other.host);
        numbers.bind(name, values.data());
        std::u16string error;
        ASSERT_TRUE(numbers.compile(formula, error));
        if (!script.empty()) other.run(script);
        Texts inColumns(values.size());
        auto const outcome = numbers.evaluate(values.size(), inColumns.data());
        Texts errors(values.size());
        for (auto const& failure : outcome.failures) errors[failure.record] = failure.error;

        ScriptHost oneByOne;
        oneByOne.bind(name, 0.0);
        std::int32_t const index = oneByOne.parse(formula);
        if (!script.empty()) oneByOne.run(script);
        for (std::size_t i = 0; i < values.size(); ++i) {
            oneByOne.bind(name, values[i]);
            EXPECT_EQ((ScriptHost::Run{inColumns[i], errors[i]}), oneByOne.execute(index)) << i;
        }
    }

    /// Evaluates `formula`, which gives 1 where K and all of column A are 1, and has `change` done
    /// at the first call of the progress function: every later record must be `then`.
    template <class Change>
    void changeInProgress(std::u16string const& formula, std::u16string const& then,
                          Change const& change) {
        std::vector<double> const values(kMany, 1);
        host.bind(u"K", 1.0);
        columns.bind(u"A", values.data());
        std::size_t changedAt = 0;
        columns.setProgress([&](std::size_t records) {
            if (changedAt == 0) {
                changedAt = records;
                change();
            }
            return true;
        });
        EXPECT_EQ(texts(formula, kMany).records, kMany);
        ASSERT_GT(changedAt, 0U);
        ASSERT_LT(changedAt, kMany - 1);
        Texts expected(changedAt, u"1");
        expected.resize(kMany, then);
        EXPECT_TRUE(results == expected) << "from " << changedAt;
    }

    ScriptHost host;
    KxJsColumns columns{host.host};
    Texts results;
};
