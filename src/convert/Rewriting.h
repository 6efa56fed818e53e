#pragma once

#include <cstddef>
#include <string>

#include "convert/CallIndex.h"
#include "convert/Matcher.h"
#include "convert/Rule.h"
#include "convert/Workspace.h"

namespace kx {

/// What it takes to keep the calls of the workspace true; nothing where they are not in use.
struct CallTracking {
    CallIndex const* index = nullptr;
    LiteralCalls const* literalCalls = nullptr;  ///< of the rule's replacement
};

/// One application of a rule to the text, in one go from left to right: the caller offers start
/// positions in ascending order, matches are replaced as they are found, and the rest is copied.
///
/// Where calls are tracked, those of the workspace are brought along: what is known of a call stays
/// true if all that it was learnt from is copied with it, else the call is looked at again.
template <class Meter>
class Rewriting {
  public:
    Rewriting(Rule const& rule, CallTracking tracking, Workspace& work, Meter& meter)
        : rule(rule),
          tracking(tracking),
          work(work),
          meter(meter),
          matcher(rule.pattern, work.text, work.matching, meter) {}

    /// Replaces the match that begins at `start`, if there is one. A start inside the last match
    /// is ignored.
    void offer(std::size_t start) {
        if (start < matchEnd) return;
        std::size_t const end = matcher.matchAt(start);
        if (end == nowhere) return;
        matchEnd = end;
        auto const matched = std::u16string_view(work.text).substr(start, end - start);
        if (!rule.replacement.isAlways(matched)) replace(start, end);
    }

    /// Completes the text. Returns the start of the first replacement, up to which the text is as
    /// it was, or `nowhere` if there was none.
    std::size_t finish() {
        if (first == nowhere) return nowhere;
        copyRest(work.text.size());
        meter.count(work.rewritten.size());
        work.text.swap(work.rewritten);
        work.calls.swap(work.rewrittenCalls);
        return first;
    }

  private:
    void replace(std::size_t start, std::size_t end) {
        if (first == nowhere) {
            first = start;
            work.rewritten.clear();
            work.rewritten.reserve(work.text.capacity());
            work.rewrittenCalls.clear();
        }
        copyRest(start);
        for (std::size_t number = 0; number < rule.replacement.pieces().size(); ++number) {
            Replacement::Piece const& piece = rule.replacement.pieces()[number];
            std::size_t const begin = work.rewritten.size();
            work.rewritten.append(piece.literal);
            if (tracking.index != nullptr)
                for (Call const& call : (*tracking.literalCalls)[number]) track(call, 0, begin);
            if (piece.group != 0)
                copy(matcher.groupBegin(piece.group), matcher.groupEnd(piece.group));
        }
        copied = end;
    }

    void copyRest(std::size_t to) { nextCall = copy(copied, to); }

    /// Appends a part of the text with its calls. Returns the number of the first call behind it.
    std::size_t copy(std::size_t from, std::size_t to) {
        std::size_t const begin = work.rewritten.size();
        work.rewritten.append(work.text, from, to - from);
        if (tracking.index == nullptr) return 0;
        std::size_t next = nextCall;
        while (next < work.calls.size() && work.calls[next].parenthesis < from) ++next;
        for (; next < work.calls.size() && work.calls[next].parenthesis < to; ++next)
            track(work.calls[next], from, begin);
        return next;
    }

    /// Adds a call that was copied with the text from `from` on, which now begins at `begin`.
    void track(Call const& call, std::size_t from, std::size_t begin) {
        meter.count(1);
        std::size_t const shift = begin - from;  // may wrap, and then wraps back
        std::size_t const parenthesis = call.parenthesis + shift;
        bool const isStillTrue = call.nameBegin > from || (from == 0 && begin == 0);
        if (isStillTrue)
            work.rewrittenCalls.push_back({parenthesis, call.nameBegin + shift, call.rules});
        else
            work.rewrittenCalls.push_back(
                tracking.index->callAt(work.rewritten, parenthesis, meter));
    }

    Rule const& rule;
    CallTracking tracking;
    Workspace& work;
    Meter& meter;
    Matcher<Meter> matcher;
    std::size_t matchEnd = 0;  ///< of the last match
    std::size_t nextCall = 0;  ///< the first that may not stand in the rewritten text yet
    std::size_t copied = 0;    ///< the end of what stands in the rewritten text in some form
    std::size_t first = nowhere;
};

/// Applies a rule, trying every position at which a match can begin.
template <class Meter>
std::size_t applyEverywhere(Rule const& rule, CallTracking tracking, Workspace& work,
                            Meter& meter) {
    Rewriting<Meter> rewriting(rule, tracking, work, meter);
    std::u16string_view const text = work.text;
    meter.count(text.size());
    StartFilter const& starts = rule.starts;
    std::size_t const end = text.size() < starts.length() ? 0 : text.size() - starts.length() + 1;
    for (std::size_t i = 0; i < end; ++i)
        if (starts.mayStartAt(text, i)) rewriting.offer(i);
    return rewriting.finish();
}

}  // namespace kx
