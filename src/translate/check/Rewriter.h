#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "translate/Settings.h"
#include "translate/Tree.h"
#include "translate/check/Findings.h"
#include "translate/check/SafeText.h"

namespace kx::translate {

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
    Part renderBetween(Node const& node);
    Part renderInList(Node const& node);
    Part renderInteger(Node const& node);
    Part renderSubstring(Node const& node, std::u16string_view function);
    Part renderPosition(Node const& node, std::u16string_view function);
    Part renderPadded(Node const& node);
    Part renderLeading(std::u16string const& text, Node const& right);

    std::u16string withoutLastBlanks(NodeIndex index);
    bool mayEndInBlank(NodeIndex index) const;
    bool ignoresLastBlanks(Node const& node) const;

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

}  // namespace kx::translate
