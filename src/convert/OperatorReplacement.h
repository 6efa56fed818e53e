#pragma once

#include <cstddef>
#include <string_view>

#include "convert/Workspace.h"

namespace kx {

/// Replaces a literal operator outside quotes. The result is that of a scan of a text that is
/// rewritten in place, with these peculiarities:
///
/// - The scan stops before the last position where the operator fits, so an operator at the very
///   end of the text stays.
/// - A quote of either kind begins or ends quoted text, unless a backslash stands before it. A
///   quote at the very start of the text always counts.
/// - A replacement moves the position on by the length of the operator, and the scan adds one. So
///   with a replacement of equal length, the unit behind it is skipped: "a\\b" with "\" replaced by
///   "/" gives "a/\b".
///
/// The rewritten text is built in a second string, as replacing in place would move the rest of the
/// text each time. Positions are those of the old text: behind the scan the two are the same.
class OperatorReplacement {
  public:
    explicit OperatorReplacement(Workspace& work) : work_(work) {}

    /// Returns the position of the first replacement, before which the text did not change, or
    /// `kNowhere`. An empty operator occurs nowhere.
    ///
    /// The cost is linear if the replacement is longer than the operator by one unit at most, as
    /// those of the conversion are. The scan reads a longer one again from that unit on.
    std::size_t apply(std::u16string_view op, std::u16string_view replacement);

  private:
    bool isEscaped(std::size_t quote) const;
    void copyUpTo(std::size_t position);

    Workspace& work_;
    std::size_t copied_ = 0;  ///< the text before is copied or replaced
};

}  // namespace kx
