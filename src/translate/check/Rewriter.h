#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/NumberText.h"
#include "translate/Operators.h"
#include "translate/Settings.h"
#include "translate/Tree.h"
#include "translate/check/Findings.h"
#include "translate/check/Ranges.h"
#include "translate/check/SafeText.h"

namespace kx::translate {

/// Above all operators: operands, calls, what stands in parentheses.
inline constexpr Binding kOperandBinding =
    static_cast<Binding>(static_cast<int>(Binding::power) + 2);

inline std::u16string sizeText(std::size_t size) {
    return decimalText(static_cast<std::int64_t>(size));
}

/// Writes formulas in such a way that the exact conversion keeps what they mean. What is written is
/// to be converted and compared before anyone is told.
class Rewriter {
  public:
    Rewriter(Tree const& tree, std::u16string_view source, Settings const& settings,
             std::vector<Found> const& found);

    /// From now on texts have no parentheses, where the conversion may change them.
    void codeParentheses() { inTexts_ = Parentheses::coded; }

    /// The part of the formula that is a node, without parentheses around it, rewritten; empty
    /// where there is no rewriting.
    std::u16string rewrite(NodeIndex node);

  private:
    /// A part, and how tightly its weakest operator binds.
    struct Part {
        std::u16string text;
        Binding binding = Binding::none;
        bool isPossible = true;
    };

    Part render(NodeIndex index);
    Part copy(NodeIndex index);
    Part renderBinary(NodeIndex index);
    Part renderContained(Node const& node);
    Part renderEqual(Node const& node);
    Part renderCompared(Node const& node, std::u16string_view sign);
    Part renderGreaterOrEqual(Node const& node);
    Part renderName(NodeIndex index);
    Part renderNegation(NodeIndex index);
    Part renderText(NodeIndex index);
    Part renderCall(NodeIndex index);
    Part renderDiffering(Node const& node, std::u16string_view function);
    Part renderUnknown(Node const& node, std::u16string_view function);
    Part renderBroken(Node const& node, std::u16string_view function);
    Part renderInstalled(Node const& node, std::u16string_view function);
    Part renderBetween(Node const& node);
    Part renderInList(Node const& node);
    Part renderInteger(Node const& node);
    Part renderSubstring(Node const& node, std::u16string_view function);
    Part renderPosition(Node const& node, std::u16string_view function);
    Part renderPadded(Node const& node, std::u16string_view function);
    Part renderNumberText(Node const& node, std::u16string_view function);
    Part renderValue(Node const& node);
    Part renderTextMinus(Node const& node);
    Part literal(std::u16string_view text);
    Part renderLeading(std::u16string const& text, Node const& right);

    std::optional<std::u16string> paddedText(NodeIndex index);
    std::u16string withoutLastBlanks(NodeIndex index);
    bool mayEndInBlank(NodeIndex index) const;
    bool ignoresLastBlanks(Node const& node) const;
    bool hasKnownKinds(Node const& node) const;

    bool has(NodeIndex index, Code code) const {
        return (codes_[index] >> static_cast<int>(code) & 1) != 0;
    }
    std::u16string_view written(Place place) const {
        return source_.substr(place.start, place.end - place.start);
    }
    /// An argument's text, in parentheses unless it is an operand.
    std::u16string operand(NodeIndex index);
    std::u16string argument(Node const& call, std::size_t which);
    static Part impossible() { return {{}, Binding::none, false}; }
    static Part operandPart(std::u16string text);

    Tree const& tree_;
    std::u16string_view source_;
    Settings const& settings_;
    std::vector<std::uint64_t> codes_;
    Parentheses inTexts_ = Parentheses::written;
    bool isPossible_ = true;
    std::size_t written_ = 0;
};

/// Whether it is a literal of a whole number from `least` on.
inline bool isWholeFrom(Node const& node, double least) {
    return node.kind == NodeKind::number && node.scale == 0 && node.number >= least;
}

}  // namespace kx::translate
