// Evaluates generated formulas over columns, and compares with records run one by one.
//
// The first byte chooses the columns' types and values, the second whether the source is converted
// before.
#include <algorithm>
#include <alloca.h>
#include <chrono>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "ColumnTable.h"
#include "convert/Converter.h"
#include "support/Check.h"
#include "support/Impossible.h"
#include "support/SaneHost.h"
#include "support/Units.h"

namespace {

using kx::fuzz::check;
using kx::fuzz::checkEqual;
using Results = std::vector<ColumnTable::Result>;

constexpr std::chrono::milliseconds kTimeLimit{100};
constexpr std::size_t kMemoryLimit = std::size_t{32} << 20;

class Host {
  public:
    Host() {
        host_.setTimeLimit(kTimeLimit);
        host_.setMemoryLimit(kMemoryLimit);
        host_.initialize();
    }
    KxJsParser& get() { return host_; }

  private:
    KxJsParser host_;
};

/// Runs one by one in a new host, this many bytes further down the stack.
Results oneByOne(ColumnTable const& table, std::u16string const& source, std::size_t depth = 0) {
    auto* const used = static_cast<char volatile*>(alloca(depth + 1));
    used[0] = 0;
    Host host;
    return table.oneByOne(host.get(), source);
}

/// Whether a source may give another result each time: it depends on the clock, on chance, or on
/// where the stack ends, which depends on the caller.
bool isFickle(ColumnTable const& table, std::u16string const& source, Results const& results) {
    for (std::size_t depth = 1; depth < 4096; depth = depth * 3 + 10) {
        if (oneByOne(table, source, depth) != results) return true;
    }
    return false;
}

/// Limits hold for a run one by one and for an evaluation as a whole, and where the stack ends
/// depends on what is on it before the script.
bool isLimited(Results const& results) {
    return results.size() != ColumnTable::kRecords ||
           std::any_of(results.begin(), results.end(), [](auto const& result) {
               return result.error.starts_with(u"The script was ") ||
                      result.error.find(u"Maximum call stack size") != std::u16string::npos;
           });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size < 2) return 0;
    static kx::fuzz::SaneHost sane;
    std::u16string const text =
        kx::fuzz::textOf({reinterpret_cast<char const*>(data) + 2, size - 2});
    if (kx::fuzz::mayBeImpossible(text)) return 0;
    std::u16string const source = data[1] % 2 == 0 ? Converter::_convert(text.c_str()) : text;
    std::mt19937_64 random(data[0]);
    ColumnTable table(random);
    // Some have names of members.
    for (char16_t const* const name : {u"A", u"B", u"S", u"E", u"left", u"length"}) {
        table.add(name, ColumnTable::Range::small);
    }

    Results const expected = oneByOne(table, source);
    Host host;
    Results const results = table.atOnce(host.get(), source);
    if (expected.size() == 1) {
        check(results.size() == 1, "what does not compile");
        checkEqual(results[0].error, expected[0].error, "why it does not compile");
    } else if (results != expected && !isLimited(expected) && !isLimited(results) &&
               !isFickle(table, source, expected)) {
        for (std::size_t i = 0; i < expected.size(); ++i) {
            checkEqual(results[i].text, expected[i].text, "a record's result");
            checkEqual(results[i].error, expected[i].error, "a record's error");
        }
    }
    sane.checkNow();
    return 0;
}
