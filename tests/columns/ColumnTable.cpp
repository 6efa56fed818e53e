#include "ColumnTable.h"

#include <algorithm>
#include <limits>

#include "text/NumberText.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr auto kDoubles = std::to_array<double>(
    {0, -0.0, 1, -1, 1.5, -2.5, 0.1, 0.3, 1e-7, 3, 2, 20, -0.0005, 10.526, 7.25, 123.456, kNaN});
constexpr auto kExtremes =
    std::to_array<double>({1e21, 1e10, 4294967296, 123456789, kInfinity, -kInfinity});
constexpr auto kLongs =
    std::to_array<std::int32_t>({0, 1, -1, 2, 3, 5, 10, 100, 77, 13, 31, 255, -40});
constexpr auto kLongExtremes = std::to_array<std::int32_t>(
    {std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()});
constexpr std::array kTruths = {false, true};
auto const kTexts = std::to_array<std::u16string>({u"",
                                                   u"abc",
                                                   u"  some words, and more  ",
                                                   u"12",
                                                   u"1e3",
                                                   u"-7.5",
                                                   u"NaN",
                                                   u"BaNaNa",
                                                   u"true",
                                                   u"A>2",
                                                   u"B",
                                                   u"Gr\u00f6\u00dfe",
                                                   u"\u4e2d\u6587 text",
                                                   u"\xd83d",
                                                   std::u16string(u"cut\0off", 7),
                                                   std::u16string(300, u'x'),
                                                   std::u16string(254, u'y') + u"12345",
                                                   u"it's \"quoted\"",
                                                   u"throw",
                                                   u"1/"});

}  // namespace

void ColumnTable::add(std::u16string const& name, Range range) {
    auto const fill = [&](auto values, auto const& list, auto const& extremes) {
        for (auto& value : values) {
            value = range == Range::full && random_() % 5 == 0 ? pick(extremes) : pick(list);
        }
        return values;
    };
    switch (random_() % 4) {
        case 0:
            columns_[name] = fill(Values<double>(), kDoubles, kExtremes);
            break;
        case 1:
            columns_[name] = fill(Values<std::int32_t>(), kLongs, kLongExtremes);
            break;
        case 2:
            columns_[name] = fill(Values<bool>(), kTruths, kTruths);
            break;
        default:
            columns_[name] = fill(Values<std::u16string>(), kTexts, kTexts);
    }
}

std::vector<ColumnTable::Result> ColumnTable::oneByOne(KxJsParser& host,
                                                       std::u16string const& source) const {
    std::vector<Result> results;
    std::int32_t index = -1;
    for (std::size_t record = 0; record < kRecords; ++record) {
        for (auto const& [name, column] : columns_) {
            std::visit(
                [&, &key = name](auto const& values) {
                    host.addSetVariable({key, values[record]});
                },
                column);
        }
        Result result;
        if (record == 0) index = host.parse(source, result.error);
        if (index != -1) result.text = host.execute(index, result.error);
        results.push_back(result);
        if (index == -1) break;
    }
    return results;
}

void ColumnTable::bindAll(KxJsColumns& columns) const {
    for (auto const& [name, column] : columns_) {
        std::visit([&, &key = name](auto const& values) { columns.bind(key, values.data()); },
                   column);
    }
}

std::vector<ColumnTable::Result> ColumnTable::atOnce(KxJsParser& host,
                                                     std::u16string const& source) const {
    KxJsColumns columns(host);
    bindAll(columns);
    Result failure;
    if (!columns.compile(source, failure.error)) return {failure};
    std::array<std::u16string, kRecords> texts;
    KxJsColumns::Outcome const outcome = columns.evaluate(kRecords, texts.data());
    std::vector<Result> results(outcome.records);
    for (std::size_t i = 0; i < results.size(); ++i) results[i].text = texts[i];
    for (auto const& failure : outcome.failures) results.at(failure.record).error = failure.error;
    return results;
}

std::vector<ColumnTable::Result> ColumnTable::numbers(KxJsParser& host,
                                                      std::u16string const& source) const {
    KxJsColumns columns(host);
    bindAll(columns);
    Result failure;
    if (!columns.compile(source, failure.error)) return {failure};
    std::array<double, kRecords> numbers;
    KxJsColumns::Outcome const outcome = columns.evaluate(kRecords, numbers.data());
    std::vector<Result> results(outcome.records);
    for (std::size_t i = 0; i < results.size(); ++i) results[i].text = kx::numberToText(numbers[i]);
    for (auto const& failure : outcome.failures) results.at(failure.record).error = failure.error;
    return results;
}
