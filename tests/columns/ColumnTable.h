#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <variant>
#include <vector>

#include "columns/KxJsColumns.h"
#include "host/KxJsParser.h"

/// Columns of values that formulas stumble over, for comparing evaluations of whole columns with
/// records that are run one by one.
class ColumnTable {
  public:
    static constexpr std::size_t kRecords = 9;

    struct Result {
        std::u16string text;
        std::u16string error;
        bool operator==(Result const&) const = default;
    };

    explicit ColumnTable(std::mt19937_64& random) : random_(random) {}

    /// Whether numbers may be so large that a formula which counts up to them never ends.
    enum class Range { small, full };

    /// Adds a column of random type and values.
    void add(std::u16string const& name, Range range);

    /// What one by one execution in `host` gives. The error alone where `source` does not compile.
    std::vector<Result> oneByOne(KxJsParser& host, std::u16string const& source) const;
    /// What an evaluation of whole columns gives, in the same form.
    std::vector<Result> atOnce(KxJsParser& host, std::u16string const& source) const;
    /// The numbers that an evaluation gives, as texts, or the errors.
    std::vector<Result> numbers(KxJsParser& host, std::u16string const& source) const;

  private:
    template <class Value>
    using Values = std::array<Value, kRecords>;
    using Column =
        std::variant<Values<double>, Values<std::int32_t>, Values<bool>, Values<std::u16string>>;

    template <class List>
    auto const& pick(List const& list) {
        return list[random_() % std::size(list)];
    }
    void bindAll(KxJsColumns& columns) const;

    std::mt19937_64& random_;
    std::map<std::u16string, Column> columns_;
};
