// Hosts parse and execute generated sources, under small limits.
//
// The input is a list of steps, one to a line (0x1e ends a line, since sources have line breaks).
// The first byte of a line says what is done:
//
//     c SOURCE    convert, parse, execute        v KEY=VALUE    bind a variable
//     j SOURCE    parse, execute                 h              go on with the next host
//     x N         execute a script again         r, n           reset the host; a new host
#include <array>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "convert/Converter.h"
#include "host/KxJsParser.h"
#include "support/Check.h"
#include "support/Impossible.h"
#include "support/SaneHost.h"
#include "support/Units.h"

namespace {

using kx::fuzz::check;
using kx::fuzz::checkEqual;

constexpr std::chrono::milliseconds kTimeLimit{50};
constexpr std::size_t kMemoryLimit = std::size_t{32} << 20;
constexpr std::size_t kMostSteps = 12;
constexpr std::u16string_view kUntouched = u"untouched";

/// The lines of a source by the line ends of JavaScript.
std::vector<std::u16string> linesOf(std::u16string const& source) {
    std::vector<std::u16string> lines(1);
    for (std::size_t i = 0; i < source.size(); ++i) {
        bool const isCrOfCrLf = source[i] == u'\r' && source.substr(i + 1, 1) == u"\n";
        if (isCrOfCrLf) continue;
        if (source[i] == u'\n' || source[i] == u'\r' || source[i] == u'\u2028' ||
            source[i] == u'\u2029') {
            lines.emplace_back();
        } else {
            lines.back() += source[i];
        }
    }
    return lines;
}

/// A failure's place is in the source, or there is none.
void checkPlace(KxJsFailure const& failure, std::u16string const& source) {
    if (failure.line == 0) {
        check(failure.column == 0 && failure.endColumn == 0, "no place is no place at all");
        return;
    }
    std::vector<std::u16string> const lines = linesOf(source);
    check(failure.line > 0 && static_cast<std::size_t>(failure.line) <= lines.size(),
          "a failure's line");
    std::u16string const& line = lines[static_cast<std::size_t>(failure.line - 1)];
    check(failure.column > 0 && failure.endColumn >= failure.column, "a failure's columns");
    check(static_cast<std::size_t>(failure.column) <= line.size() + 1, "a failure's column");
    if (line.find(u'\0') == std::u16string::npos) {
        checkEqual(failure.sourceLine, line, "a failure's source line");
    }
}

class FuzzedHost {
  public:
    FuzzedHost() {
        host_.setTimeLimit(kTimeLimit);
        host_.setMemoryLimit(kMemoryLimit);
        host_.initialize();
    }

    void parseAndExecute(std::u16string const& source) {
        std::u16string error(kUntouched);
        std::int32_t const index = host_.parse(source, error);
        if (index == -1) {
            check(error != kUntouched && !error.empty(), "a failed parse says why");
            check(host_.lastFailure() != nullptr, "a failed parse has a failure");
            checkPlace(*host_.lastFailure(), source);
            return;
        }
        check(index == count_, "indices are counted");
        check(error == kUntouched, "a parse leaves the error alone");
        ++count_;
        sources_.push_back(source);
        execute(index);
    }

    void executeAgain(std::string_view number) {
        if (count_ == 0) return;
        unsigned int index = 0;
        std::from_chars(number.data(), number.data() + number.size(), index);
        execute(static_cast<std::int32_t>(index % static_cast<unsigned int>(count_)));
    }

    void bind(std::string_view assignment) {
        auto const sign = assignment.find('=');
        if (sign == std::string_view::npos) return;
        std::u16string const key = kx::fuzz::textOf(assignment.substr(0, sign));
        std::string_view const value = assignment.substr(sign + 1);
        double number = 0;
        if (std::from_chars(value.data(), value.data() + value.size(), number).ec == std::errc()) {
            host_.addSetVariable(KxJsVariable(key, number));
        } else {
            host_.addSetVariable(KxJsVariable(key, kx::fuzz::textOf(value)));
        }
    }

    void reset() {
        host_.reset();
        count_ = 0;
        sources_.clear();
    }

    /// Operations that do not need the context work, whatever scripts did to it.
    void checkUsable() {
        reset();  // a key may be a number, and occur here
        host_.setTimeLimit(std::chrono::milliseconds::zero());
        std::u16string error;
        std::int32_t const index = host_.parse(u"19+23", error);
        check(index == count_, "a used host parses");
        checkEqual(host_.execute(index, error), u"42", "a used host's result");
        checkEqual(error, u"", "a used host's error");
        // A setter that a script put in a variable's place runs when the host ends.
        host_.setTimeLimit(kTimeLimit);
    }

  private:
    void execute(std::int32_t index) {
        std::u16string error(kUntouched);
        std::u16string const result = host_.execute(index, error);
        bool const saysNaN = result.find(u"NaN") != std::u16string::npos;
        if (error == kUntouched) {
            check(!saysNaN, "NaN comes with an error");
        } else if (error == u"Not A Number") {
            check(saysNaN || result.empty(), "without NaN no such error");
        } else {
            checkEqual(result, u"", "a failed run has no result");
            check(host_.lastFailure() != nullptr, "a failed run has a failure");
            checkPlace(*host_.lastFailure(), sources_[static_cast<std::size_t>(index)]);
        }
    }

    KxJsParser host_;
    std::int32_t count_ = 0;
    std::vector<std::u16string> sources_;
};

void step(std::array<std::unique_ptr<FuzzedHost>, 2>& hosts, std::size_t& current,
          std::string_view line) {
    std::unique_ptr<FuzzedHost>& host = hosts[current];
    if (host == nullptr) host = std::make_unique<FuzzedHost>();
    std::string_view const rest = line.substr(1);
    std::u16string const source = kx::fuzz::textOf(rest);
    switch (line.front()) {
        case 'c':
            host->parseAndExecute(Converter::_convert(source.c_str()));
            break;
        case 'j':
            host->parseAndExecute(source);
            break;
        case 'x':
            host->executeAgain(rest);
            break;
        case 'v':
            host->bind(rest);
            break;
        case 'r':
            host->reset();
            break;
        case 'n':
            host = nullptr;
            break;
        case 'h':
            current = 1 - current;
            break;
        default:
            break;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string_view input(reinterpret_cast<char const*>(data), size);
    if (kx::fuzz::mayBeImpossible(kx::fuzz::textOf(input))) return 0;
    static kx::fuzz::SaneHost sane;
    std::array<std::unique_ptr<FuzzedHost>, 2> hosts;
    std::size_t current = 0;
    for (std::size_t steps = 0; !input.empty() && steps < kMostSteps; ++steps) {
        std::string_view const line = input.substr(0, input.find('\x1e'));
        if (!line.empty()) step(hosts, current, line);
        input.remove_prefix(std::min(input.size(), line.size() + 1));
    }
    for (auto const& host : hosts) {
        if (host != nullptr) host->checkUsable();
    }
    sane.checkNow();
    return 0;
}
