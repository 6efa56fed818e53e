// Translation and check, and translated formulas in hosts: formulas of 63 characters, long ones,
// hostile ones, and the real ones.
#include <benchmark/benchmark.h>
#include <fstream>
#include <string>
#include <vector>

#include "Run.h"
#include "translate/KxJsTranslator.h"

namespace {

using Formula = std::u16string;

Formula repeated(Formula const& piece, std::size_t count) {
    Formula text;
    for (std::size_t i = 0; i < count; ++i) text += piece;
    return text;
}

void translate(benchmark::State& state, Formula const& formula) {
    KxJsTranslator const translator;
    for (auto _ : state) benchmark::DoNotOptimize(translator.translate(formula));
}

void check(benchmark::State& state, Formula const& formula) {
    KxJsTranslator const translator;
    for (auto _ : state) benchmark::DoNotOptimize(translator.check(formula));
}

/// Real formulas over and over, as many as `count`.
void checkReal(benchmark::State& state, std::size_t count) {
    std::vector<Formula> formulas;
    std::ifstream file(KXJS_REAL_FORMULAS);
    for (std::string line; std::getline(file, line);) {
        // Letters beyond ASCII count as several, which makes no difference here.
        line.erase(0, line.find('\t') + 1);
        formulas.emplace_back(line.begin(), line.end());
    }
    if (formulas.empty()) {
        state.SkipWithError("no formulas");
        return;
    }
    KxJsTranslator const translator;
    for (auto _ : state) {
        for (std::size_t i = 0; i < count; ++i) {
            benchmark::DoNotOptimize(translator.check(formulas[i % formulas.size()]));
        }
    }
}

}  // namespace

int main(int count, char** arguments) {
    // Each of 63 characters.
    std::vector<std::pair<std::string, Formula>> const formulas{
        {"arithmetic", u"price * quantity + shipping - discount + 12 * (tax + surcharge)"},
        {"operators", u"total >= 100 .AND. (status <> 'open' .OR. paid = 1) AND a <> bc"},
        {"functions", u"IIF(ALLTRIM(name)<>'x' .AND. SQRT(a)>=2,SUBSTR(s,1,3),MOD(a,7))"},
    };
    for (auto const& [name, formula] : formulas) {
        benchmark::RegisterBenchmark(("translate/" + name).c_str(),
                                     [text = formula](auto& state) { translate(state, text); });
        benchmark::RegisterBenchmark(("check/" + name).c_str(),
                                     [text = formula](auto& state) { check(state, text); });
    }
    std::vector<std::pair<std::string, Formula>> const pieces{
        {"arguments", u"LEN('a b'),"},
        {"comments", u"/* a */ "},
        {"parentheses", u"("},
        {"texts", u"'a'='b',"},
    };
    for (auto const& [name, piece] : pieces) {
        // Twice the length should take twice the time.
        for (std::size_t const length : {10000, 20000}) {
            Formula const formula = u"MAX(" + repeated(piece, length) + u"1)";
            std::string const title = name + " x " + std::to_string(length);
            benchmark::RegisterBenchmark(("translate/" + title).c_str(), [formula](auto& state) {
                translate(state, formula);
            })->Unit(benchmark::kMillisecond);
            benchmark::RegisterBenchmark(("check/" + title).c_str(), [formula](auto& state) {
                check(state, formula);
            })->Unit(benchmark::kMillisecond);
        }
    }
    constexpr std::size_t kMany = 100000;
    benchmark::RegisterBenchmark("check/100000 real formulas", [](auto& state) {
        checkReal(state, kMany);
    })->Unit(benchmark::kMillisecond);
    registerRuns();
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
