#include "ColumnTable.h"

#include <algorithm>
#include <limits>

#include "host/NumberText.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kDoubles[] = {
    0,      -0.0,      1,         -1,         1.5,
    -2.5,   0.1,       1e21,      1e-7,       3,
    10.526, 123456789, kInfinity, -kInfinity, 2,
    7.25,   1e10,      -0.0005,   4294967296, std::numeric_limits<double>::quiet_NaN()};
constexpr std::int32_t kLongs[] = {0,
                                   1,
                                   -1,
                                   2,
                                   3,
                                   5,
                                   10,
                                   100,
                                   77,
                                   13,
                                   31,
                                   255,
                                   -40,
                                   std::numeric_limits<std::int32_t>::max(),
                                   std::numeric_limits<std::int32_t>::min()};
std::u16string const kTexts[] = {u"",
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
                                 u"1/"};

}  // namespace

void ColumnTable::add(std::u16string const& name) {
    auto const fill = [this](auto values, auto const& list) {
        for (auto& value : values) value = pick(list);
        return values;
    };
    switch (random_() % 4) {
        case 0:
            columns_[name] = fill(Values<double>(), kDoubles);
            break;
        case 1:
            columns_[name] = fill(Values<std::int32_t>(), kLongs);
            break;
        case 2:
            columns_[name] = fill(Values<bool>(), std::array{false, true});
            break;
        default:
            columns_[name] = fill(Values<std::u16string>(), kTexts);
    }
}

std::vector<ColumnTable::Result> ColumnTable::oneByOne(KxJsParser& host,
                                                       std::u16string const& source) const {
    std::vector<Result> results;
    std::int32_t index = -1;
    for (std::size_t record = 0; record < kRecords; ++record) {
        for (auto const& [name, column] : columns_) {
            std::visit(
                [&](auto const& values) {
                    host.addSetVariable({name, values[record]});
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
        std::visit([&](auto const& values) { columns.bind(name, values.data()); }, column);
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
    for (auto const& [record, error] : outcome.failures) results.at(record).error = error;
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
    for (auto const& [record, error] : outcome.failures) results.at(record).error = error;
    return results;
}
