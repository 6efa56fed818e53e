#pragma once

#include <cstddef>
#include <string_view>

#include "convert/Pattern.h"
#include "convert/Workspace.h"

namespace kx {

/// Finds the matches of a pattern in the text of a workspace, at ascending start positions.
///
/// It works in one of two modes. Both keep only where each item of the branch begins; both are
/// linear in the length of the text, however many starts are tried.
///
/// One-pass, for a pattern whose loops never give back: every item is visited once.
///
///     pattern SIN\s*\(([^)]+)\), text "SIN(SIN(x":
///     start 0: SIN matches, `[^)]*` runs to the end of the text, `\)` fails: no match.
///     start 4: SIN matches, `[^)]*` begins inside its last run and so ends where that ended.
///
/// Each loop keeps its last run, so that no unit is read by the same loop twice. This holds for the
/// rules: white space before "(" is entered at its first unit only, as a name ends there. Loops
/// behind "(" are entered at ascending positions.
///
/// Bit-state, for a pattern whose loops may give back: a failed item makes the last loop or
/// optional item before it take one unit less. A bit for each loop and position says that the loop
/// has been there.
///
///     pattern \d+.?\^, text "1111":
///     start 0: `\d*` passes 1 to 4 and gives back down to 1; `\^` fails each time: no match.
///     start 1: `\d*` would begin at 2, where it has been: no match, without reading on.
///
/// What follows a position in the pattern depends on that position alone, as there are no back
/// references. So what failed once fails again, and each loop goes through each position once.
/// A position that did not fail belongs to a match and lies at its end or before. Later starts lie
/// at that end or behind. A loop could be there again only if the pattern before it and the pattern
/// behind it had both matched the empty text, but no pattern can.
class Matcher {
  public:
    Matcher(Pattern const& pattern, Workspace& work);

    /// The end of the match that begins at `start`, or `kNowhere`. Starts ascend from call to call,
    /// and none lies inside the match before it.
    std::size_t matchAt(std::size_t start);

    /// The text of a group of the last match. Groups are counted from 1.
    /// @{
    std::size_t groupBegin(std::size_t number) const {
        return work_.itemBegins[branch_->groups[number - 1].begin];
    }
    std::size_t groupEnd(std::size_t number) const {
        return work_.itemBegins[branch_->groups[number - 1].end];
    }
    /// @}

  private:
    std::size_t matchBranch(Branch const& branch, std::size_t start);
    bool goBack(Branch const& branch, std::size_t& number);
    std::size_t endOfItem(Item const& item, std::size_t begin);
    std::size_t endOfRun(Item const& loop, std::size_t begin);
    std::size_t endOfUntried(Item const& loop, std::size_t begin);

    Pattern const& pattern_;
    std::u16string_view text_;
    Workspace& work_;
    Branch const* branch_ = nullptr;  ///< of the last match
};

}  // namespace kx
