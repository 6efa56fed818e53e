#pragma once

#include <cstddef>
#include <string_view>

#include "convert/CallIndex.h"
#include "convert/Matcher.h"
#include "convert/Rule.h"
#include "convert/Workspace.h"

namespace kx {

/// One application of a rule to the text of a workspace, from left to right. The caller offers
/// start positions in ascending order. Matches are replaced, and the text between them is copied.
///
/// With an index, the calls of the workspace are kept up to date: a call moves along with the text
/// that its rules depend on. If that text was changed, the call is looked at again.
class Rewriting {
  public:
    Rewriting(Rule const& rule, CallIndex const* index, Workspace& work)
        : rule_(rule), index_(index), work_(work), matcher_(rule.pattern, work) {}

    /// Replaces the match that begins at `start`, if there is one. A start inside the last match is
    /// ignored.
    void offer(std::size_t start) {
        if (start < matchEnd_) return;
        std::size_t const end = matcher_.matchAt(start);
        if (end == kNowhere) return;
        matchEnd_ = end;
        auto const matched = std::u16string_view(work_.text).substr(start, end - start);
        if (!rule_.replacement.isJust(matched)) replace(start, end);
    }

    /// Completes the text. Returns the start of the first replacement, which is the length of the
    /// part that did not change, or `kNowhere` if there was no replacement.
    std::size_t finish();

  private:
    void replace(std::size_t start, std::size_t end);
    void copyRest(std::size_t to) { nextCall_ = copy(copied_, to); }
    std::size_t copy(std::size_t from, std::size_t to);
    void addCall(Call const& call, std::size_t from, std::size_t begin);

    Rule const& rule_;
    CallIndex const* index_;  ///< null: calls are not kept up to date
    Workspace& work_;
    Matcher matcher_;
    std::size_t matchEnd_ = 0;  ///< of the last match
    std::size_t nextCall_ = 0;  ///< number of the first call behind `copied_`
    std::size_t copied_ = 0;    ///< the text before is copied or replaced
    std::size_t first_ = kNowhere;
};

/// Applies a rule at every position where a match can begin. Returns what finish() returns.
std::size_t applyEverywhere(Rule const& rule, CallIndex const* index, Workspace& work);

}  // namespace kx
