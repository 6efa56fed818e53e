#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "convert/CallIndex.h"
#include "convert/Matcher.h"
#include "convert/Pattern.h"
#include "convert/Replacement.h"

namespace kx {

/// The text under conversion and the memory that its rules use in turn.
struct Workspace {
    explicit Workspace(std::u16string& text) : text(text) {}

    std::u16string& text;  ///< always whole: a rule exchanges it for its result when that is done
    std::u16string rewritten;
    MatcherMemory matching;
    std::vector<Call> calls;
};

/// A compiled regex rule.
struct Rule {
    Rule(std::u16string_view pattern, std::u16string_view replacement)
        : pattern(pattern), replacement(replacement) {}

    Pattern pattern;
    Replacement replacement;
};

/// One application of a rule to the text, in one go from left to right: the caller offers start
/// positions in ascending order, matches are replaced as they are found, and the rest is copied.
template <class Meter>
class Rewriting {
  public:
    Rewriting(Rule const& rule, Workspace& work, Meter& meter)
        : rule(rule),
          work(work),
          meter(meter),
          matcher(rule.pattern, work.text, work.matching, meter) {}

    /// Where the next match can begin at the earliest.
    std::size_t position() const { return copied; }

    /// Replaces the match that begins at `start`, if there is one. A start before position() is
    /// inside the last match and ignored.
    void offer(std::size_t start) {
        if (start < copied) return;
        std::size_t const end = matcher.matchAt(start);
        if (end == nowhere) return;
        if (firstMatch == nowhere) {
            firstMatch = start;
            work.rewritten.clear();
        }
        work.rewritten.append(work.text, copied, start - copied);
        rule.replacement.appendTo(work.rewritten,
                                  [this](std::size_t number) { return matcher.group(number); });
        copied = end;
    }

    /// Completes the text. Returns the start of the first match, up to which the text is as it
    /// was, or `nowhere` without a match.
    std::size_t finish() {
        if (firstMatch == nowhere) return nowhere;
        work.rewritten.append(work.text, copied);
        meter.count(work.rewritten.size());
        work.text.swap(work.rewritten);
        return firstMatch;
    }

  private:
    Rule const& rule;
    Workspace& work;
    Meter& meter;
    Matcher<Meter> matcher;
    std::size_t copied = 0;  ///< the end of what is in `rewritten` or was passed over
    std::size_t firstMatch = nowhere;
};

/// Applies a rule, trying every position at which a match can begin.
template <class Meter>
std::size_t applyEverywhere(Rule const& rule, Workspace& work, Meter& meter) {
    Rewriting<Meter> rewriting(rule, work, meter);
    SymbolSet const& first = rule.pattern.firstSymbols();
    meter.count(work.text.size());
    for (std::size_t i = 0; i < work.text.size(); ++i)
        if (first[symbolOf(work.text[i])]) rewriting.offer(i);
    return rewriting.finish();
}

}  // namespace kx
