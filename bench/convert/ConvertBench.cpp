// The cost of a conversion: formulas of 63 characters, the cost of each character of longer ones,
// and hostile text at two lengths, whose times for each character should be alike.
//
//     bench_convert --benchmark_repetitions=9 --benchmark_report_aggregates_only
#include <benchmark/benchmark.h>
#include <functional>
#include <string>
#include <vector>

#include "convert/Converter.h"

namespace {

void convert(benchmark::State& state, std::u16string const& formula) {
    while (state.KeepRunning()) benchmark::DoNotOptimize(Converter::_convert(formula.c_str()));
    auto const units = static_cast<double>(formula.size());
    state.counters["units"] = units;
    state.counters["s/unit"] = benchmark::Counter(
        units, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

std::u16string repeated(std::u16string const& piece, int count) {
    std::u16string text;
    for (int i = 0; i < count; ++i) text += piece;
    return text;
}

struct Formula {
    char const* name;
    std::u16string text;
};

// Each has 63 characters.
std::vector<Formula> const formulas = {
    {"idle", u"price * quantity + shipping - discount + 12 * (tax + surcharge)"},
    {"string calls", u"Lower( Strextract( Alltrim( tcLine), '.SetMain(', ')', 1, 1 ) )"},
    {"operators", u"total >= 100 .AND. (status <> 'open' .OR. paid = 1) AND a <> bc"},
    {"everything", u"IIF(ALLTRIM(name)<>'x' .AND. SQRT(a)>=2,SUBSTR(s,1,3),MOD(a,7))"},
};

struct Family {
    char const* name;
    std::function<std::u16string(int)> make;
};

std::vector<Family> const families = {
    {"SIN( repeated", [](int n) { return repeated(u"SIN(", n / 4); }},
    {"MOD(a repeated", [](int n) { return repeated(u"MOD(a", n / 5); }},
    {"digits and ^", [](int n) { return std::u16string(n, u'1') + u"^"; }},
    {"^ and digits", [](int n) { return u"^" + std::u16string(n, u'1'); }},
    {"1, repeated and ^", [](int n) { return repeated(u"1,", n / 2) + u"^"; }},
    {"2** repeated", [](int n) { return repeated(u"2**", n / 3); }},
    {"blanks", [](int n) { return std::u16string(n, u' '); }},
    {"SIN and blanks", [](int n) { return u"SIN" + std::u16string(n, u' '); }},
    {"nested calls", [](int n) { return repeated(u"ABS(", n / 5) + std::u16string(n / 5, u')'); }},
};

bool const registered = [] {
    for (Formula const& formula : formulas) {
        std::string const name = formula.name;
        benchmark::RegisterBenchmark(("63 characters/" + name).c_str(), convert, formula.text);
        benchmark::RegisterBenchmark(("long/" + name).c_str(), convert,
                                     repeated(formula.text + u" + ", 100));
    }
    for (Family const& family : families)
        for (int const length : {50000, 100000})
            benchmark::RegisterBenchmark(
                (std::string("hostile/") + family.name + "/" + std::to_string(length)).c_str(),
                convert, family.make(length))
                ->Unit(benchmark::kMicrosecond);
    return true;
}();

}  // namespace
