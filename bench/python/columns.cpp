// The C++ side of the comparison with Python: evaluates a formula over columns when it is asked to.
//
//     kxbench_python_columns RECORDS     then a formula on each line of standard input
//
// Prints the nanoseconds of processor time for a record and the sum of the results. measure.py asks
// for the same formulas in turn with its own evaluations.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <iostream>
#include <map>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

#include "columns/KxJsColumns.h"
#include "convert/Converter.h"
#include "host/KxJsParser.h"

namespace {

double processorNanoseconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

std::unique_ptr<KxJsColumns> compiled(KxJsParser& host, std::string const& formula,
                                      std::vector<double> const& a, std::vector<double> const& b,
                                      std::vector<std::u16string> const& names) {
    auto columns = std::make_unique<KxJsColumns>(host);
    columns->bind(u"A", a.data());
    columns->bind(u"B", b.data());
    columns->bind(u"NAME", names.data());
    std::u16string error;
    std::u16string const source(formula.begin(), formula.end());
    if (!columns->compile(Converter::_convert(source.c_str()), error)) std::exit(1);
    return columns;
}

}  // namespace

int main(int, char** arguments) {
    std::size_t const count = std::strtoul(arguments[1], nullptr, 10);
    std::vector<double> a(count), b(count), results(count);
    std::vector<std::u16string> names(count), texts(count);
    // The same as in measure.py.
    for (std::size_t i = 0; i < count; ++i) {
        a[i] = static_cast<double>(i * 7919 % 2000003) / 1000 - 1000;
        b[i] = static_cast<double>(i * 104729 % 2000003) / 1000 - 1000;
        std::string const name = "  item " + std::to_string(i) + " ";
        names[i].assign(name.begin(), name.end());
    }
    KxJsParser host;
    host.initialize();
    std::map<std::string, std::unique_ptr<KxJsColumns>> formulas;
    for (std::string formula; std::getline(std::cin, formula);) {
        auto& columns = formulas[formula];
        if (columns == nullptr) columns = compiled(host, formula, a, b, names);
        bool const isText = formula.find("NAME") != std::string::npos;
        double const start = processorNanoseconds();
        auto const outcome = isText ? columns->evaluate(count, texts.data())
                                    : columns->evaluate(count, results.data());
        double const time = processorNanoseconds() - start;
        if (!outcome.error.empty() || !outcome.failures.empty()) return 1;
        double sum = 0;
        if (isText) {
            for (std::u16string const& text : texts) sum += static_cast<double>(text.size());
        } else {
            sum = std::accumulate(results.begin(), results.end(), 0.0);
        }
        std::printf("%.3f %.17g\n", time / static_cast<double>(count), sum);
        std::fflush(stdout);
    }
}
