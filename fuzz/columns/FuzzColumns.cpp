// Evaluates whatever the fuzzer makes over columns, and compares with records run one by one.
//
// The first byte chooses the columns' types and values, the second whether the source is converted
// before.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
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

/// Whether a source's results may be others each time.
bool isFickle(std::u16string_view source) {
    static constexpr std::array<std::u16string_view, 5> kWords{u"andom", u"RAND", u"Date", u"DATE",
                                                               u"Weak"};
    return std::any_of(kWords.begin(), kWords.end(), [source](auto word) {
        return source.find(word) != std::u16string_view::npos;
    });
}

/// Limits hold for a run one by one and for an evaluation as a whole.
bool isLimited(Results const& results) {
    return results.size() != ColumnTable::kRecords ||
           std::any_of(results.begin(), results.end(), [](auto const& result) {
               return result.error.starts_with(u"The script was ended");
           });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size < 2) return 0;
    static kx::fuzz::SaneHost sane;
    std::u16string const text =
        kx::fuzz::textOf({reinterpret_cast<char const*>(data) + 2, size - 2});
    if (kx::fuzz::mayBeImpossible(text) || isFickle(text)) return 0;
    std::u16string const source = data[1] % 2 == 0 ? Converter::_convert(text.c_str()) : text;
    std::mt19937_64 random(data[0]);
    ColumnTable table(random);
    for (char16_t const* const name : {u"A", u"B", u"S"})
        table.add(name, ColumnTable::Range::small);

    Host one;
    Results const expected = table.oneByOne(one.get(), source);
    Host all;
    Results const results = table.atOnce(all.get(), source);
    if (expected.size() == 1) {
        check(results.size() == 1, "what does not compile");
        checkEqual(results[0].error, expected[0].error, "why it does not compile");
    } else if (!isLimited(expected) && !isLimited(results)) {
        for (std::size_t i = 0; i < expected.size(); ++i) {
            checkEqual(results[i].text, expected[i].text, "a record's result");
            checkEqual(results[i].error, expected[i].error, "a record's error");
        }
    }
    sane.checkNow();
    return 0;
}
