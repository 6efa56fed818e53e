// Translated formulas in a host: compiled, run with new values, and both at once; without V8 where
// the host may, and by V8 alone.
#include "Run.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "host/KxJsParser.h"
#include "translate/KxJsTranslator.h"

namespace {

/// A host with the run-time part, and a translation with a variable.
class Running {
  public:
    Running(std::u16string const& formula, bool isNative)
        : source_(KxJsTranslator().translate(formula).javaScript) {
        host_.setNativeEvaluation(isNative);
        host_.initialize();
        std::u16string error;
        host_.evaluate(KxJsTranslator::runTimePart(), error);
        host_.addSetVariable(KxJsVariable(u"S", u"  some text "));
        setNumber();
    }

    void setNumber() {
        host_.addSetVariable(KxJsVariable(u"A", 1.0 + static_cast<double>(++count_ % 1000)));
    }
    std::int32_t parse(std::u16string const& source) {
        std::u16string error;
        return host_.parse(source, error);
    }
    std::u16string execute(std::int32_t index) {
        std::u16string error;
        return host_.execute(index, error);
    }
    std::u16string evaluate(std::u16string const& source) {
        std::u16string error;
        return host_.evaluate(source, error);
    }
    std::u16string const& source() const { return source_; }
    /// A text that V8 has not seen.
    std::u16string newSource() {
        static std::uint64_t texts = 0;
        std::string const number = std::to_string(++texts);
        return source_ + u"/*" + std::u16string(number.begin(), number.end()) + u"*/";
    }

  private:
    KxJsParser host_;
    std::u16string source_;
    std::uint64_t count_ = 0;
};

}  // namespace

void registerRuns() {
    std::vector<std::pair<std::string, std::u16string>> const formulas{
        {"arithmetic", u"A * 2 + A / 4 - 1"},
        {"choice", u"IIF(A >= 10 .AND. LEFT(S, 2) = '  ', 'many', 'few')"},
        {"texts", u"UPPER(ALLTRIM(S)) + STR(A, 8, 2)"},
    };
    for (auto const& [name, formula] : formulas) {
        for (bool const isNative : {true, false}) {
            std::string const title = name + (isNative ? "" : ", V8 alone");
            auto const parse = [text = formula, isNative](benchmark::State& state) {
                Running running(text, isNative);
                for (auto _ : state) benchmark::DoNotOptimize(running.parse(running.newSource()));
            };
            auto const execute = [text = formula, isNative](benchmark::State& state) {
                Running running(text, isNative);
                std::int32_t const index = running.parse(running.source());
                for (auto _ : state) {
                    running.setNumber();
                    benchmark::DoNotOptimize(running.execute(index));
                }
            };
            auto const oneShot = [text = formula, isNative](benchmark::State& state) {
                Running running(text, isNative);
                for (auto _ : state) {
                    running.setNumber();
                    benchmark::DoNotOptimize(running.evaluate(running.newSource()));
                }
            };
            benchmark::RegisterBenchmark(("parse translated/" + title).c_str(), parse);
            benchmark::RegisterBenchmark(("execute translated/" + title).c_str(), execute);
            benchmark::RegisterBenchmark(("one-shot translated/" + title).c_str(), oneShot);
        }
    }
}
