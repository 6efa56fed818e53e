// Evaluates formulas over whole columns of a price list: a computed column, a filter, and texts.
//
//     price_list [RECORDS]     default: a million
//
// Results go to standard output, timings to standard error.
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "columns/KxJsColumns.h"
#include "convert/Converter.h"
#include "host/KxJsParser.h"

namespace {

std::string utf8(std::u16string const& text) { return std::filesystem::path(text).string(); }

struct PriceList {
    explicit PriceList(std::size_t records)
        : prices(records), quantities(records), names(records), totals(records), labels(records) {
        for (std::size_t i = 0; i < records; ++i) {
            prices[i] = static_cast<double>(i * 37 % 10000) / 100 + 0.99;
            quantities[i] = static_cast<std::int32_t>(i * 7 % 120);
            names[i] = std::filesystem::path("  item " + std::to_string(i)).u16string();
        }
    }
    std::size_t size() const { return prices.size(); }

    std::vector<double> prices;
    std::vector<std::int32_t> quantities;
    std::vector<std::u16string> names;
    std::vector<double> totals;
    std::vector<std::u16string> labels;
};

/// Compiles `formula`, written in the older language, and evaluates it for the whole list.
template <class Result>
void compute(KxJsColumns& columns, char16_t const* formula, std::size_t records, Result* results) {
    std::u16string error;
    if (!columns.compile(Converter::_convert(formula), error)) {
        throw std::runtime_error(utf8(error));
    }
    auto const start = std::chrono::steady_clock::now();
    KxJsColumns::Outcome const outcome = columns.evaluate(records, results);
    std::chrono::duration<double, std::milli> const time = std::chrono::steady_clock::now() - start;
    if (!outcome.error.empty()) throw std::runtime_error(utf8(outcome.error));
    std::printf("%s: %zu records failed\n", utf8(formula).c_str(), outcome.failures.size());
    std::fprintf(stderr, "%8.1f ms, %6.1f ns a record: %s\n", time.count(),
                 time.count() * 1e6 / static_cast<double>(records), utf8(formula).c_str());
}

void show(PriceList& list) {
    KxJsParser host;
    host.initialize();
    host.addSetVariable(KxJsVariable(u"REBATE", 0.9));  // the same for every record
    KxJsColumns columns(host);
    columns.bind(u"PRICE", list.prices.data());
    columns.bind(u"QTY", list.quantities.data());
    columns.bind(u"NAME", list.names.data());

    // Computed: numbers in, numbers out.
    compute(columns, u"IIF(QTY>99, PRICE*REBATE, PRICE) * QTY", list.size(), list.totals.data());

    // Filtered: the records for which a condition is true.
    // KxJsColumns writes an array of bool, which std::vector<bool> does not have.
    // NOLINTNEXTLINE(modernize-avoid-c-arrays)
    auto const isWanted = std::make_unique<bool[]>(list.size());
    compute(columns, u"QTY>0 .AND. PRICE<50", list.size(), isWanted.get());

    // Texts.
    compute(columns, u"UPPERCASE(ALLTRIM(NAME)) + ', ' + ROUND(PRICE, 2)", list.size(),
            list.labels.data());

    // Totalled: the application adds up the results, since a formula sees one record only.
    double total = 0;
    std::size_t wanted = 0;
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (!isWanted[i]) continue;
        total += list.totals[i];
        ++wanted;
    }
    std::printf("%zu of %zu items cost %.2f\n", wanted, list.size(), total);
    std::printf("the last: %s\n", utf8(list.labels.back()).c_str());
}

}  // namespace

int main(int count, char** arguments) {
    try {
        std::size_t const records =
            count > 1 ? std::strtoul(arguments[1], nullptr, 10) : std::size_t{1000000};
        if (records == 0) throw std::runtime_error("usage: price_list [RECORDS]");
        PriceList list(records);
        show(list);
        return EXIT_SUCCESS;
    } catch (std::exception const& failure) {
        std::fprintf(stderr, "price_list: %s\n", failure.what());
        return EXIT_FAILURE;
    }
}
