#include "translate/check/Check.h"

#include <algorithm>
#include <utility>

#include "convert/Converter.h"
#include "text/WhiteSpace.h"
#include "translate/Parser.h"
#include "translate/check/CallTemplate.h"
#include "translate/check/Comparison.h"
#include "translate/check/Converted.h"
#include "translate/check/Rewriter.h"

namespace kx::translate {
namespace {

bool isFatal(Code code) {
    return code != Code::textCompare && code != Code::textMinus && code != Code::functionDiffers &&
           code != Code::functionUnknown && code != Code::nilName && code != Code::memberDot;
}

bool differs(Code code) { return code == Code::functionDiffers || code == Code::textCompare; }

bool isTextMinus(Code code) { return code == Code::textMinus; }

bool isUnknown(Code code) {
    return code == Code::functionUnknown || code == Code::nilName || code == Code::memberDot ||
           code == Code::untranslatable;
}

std::u16string trimmed(std::u16string text) {
    while (!text.empty() && isWhiteSpace(text.back())) text.pop_back();
    std::size_t const start =
        std::find_if_not(text.begin(), text.end(), isWhiteSpace) - text.begin();
    return text.substr(start);
}

/// A formula that has been parsed and converted.
class Checked {
  public:
    Checked(std::u16string_view formula, Settings const& settings)
        : formula_(formula), settings_(settings) {}

    CheckResult run() {
        limitCallTemplates();
        Parser parser(formula_, settings_, tree_, obstacles_);
        if (auto error = parser.parse()) {
            result_.verdict = Verdict::notAFormula;
            result_.javaScript = Converter::_convert(std::u16string(formula_).c_str());
            result_.findings.push_back(
                {u"SYNTAX", error->place, {}, std::move(error->text), {}, {}});
            return std::move(result_);
        }
        found_ = findDamage(tree_, formula_, settings_, obstacles_);
        converted_ = convertFormula(formula_);
        result_.javaScript = converted_.javaScript;
        decide();
        std::stable_sort(found_.begin(), found_.end(), [](Found const& a, Found const& b) {
            return a.place.start < b.place.start;
        });
        report();
        return std::move(result_);
    }

  private:
    bool has(bool (*which)(Code)) const {
        return std::any_of(found_.begin(), found_.end(),
                           [which](Found const& each) { return which(each.code); });
    }

    void decide() {
        if (!converted_.compiles) {
            result_.verdict = Verdict::fails;
            if (!has(isFatal)) addUnexplained();
            return;
        }
        if (converted_.isTooLarge) {
            result_.verdict = has(isFatal) ? Verdict::changed : verdictOfFunctions();
            return;
        }
        std::u16string const source = withKnownLetters(formula_);
        bool isSame = false;
        std::vector<NodeIndex> changedTexts;
        if (converted_.expression) {
            Comparison comparison(tree_, source, *converted_.expression);
            isSame = comparison.isSame();
            changedTexts = comparison.changedTexts();
        }
        result_.verdict = isSame ? verdictOfFunctions() : Verdict::changed;
        if (isSame) {
            // What was found may have turned out well, as a text with a quote of the other kind.
            std::erase_if(found_, [](Found const& each) {
                return isFatal(each.code) && each.code != Code::untranslatable &&
                       each.code != Code::textQuote;
            });
            return;
        }
        std::vector<bool> isExplained(tree_.nodes.size());
        for (Found const& each : found_) isExplained[each.node] = true;
        for (NodeIndex const text : changedTexts) {
            if (isExplained[text]) continue;
            found_.push_back({Code::textRewritten, text, tree_.nodes[text].place});
        }
        if (!has(isFatal)) addUnexplained();
    }

    Verdict verdictOfFunctions() const {
        if (has(isTextMinus)) return Verdict::changed;
        if (has(isUnknown)) return Verdict::unknown;
        return has(differs) ? Verdict::differs : Verdict::same;
    }

    /// Comments and line ends are not in the tree.
    void addUnexplained() {
        auto const root = static_cast<NodeIndex>(tree_.nodes.size() - 1);
        Code code = Code::other;
        for (std::u16string_view const sign : {u"//", u"&&", u"/*", u"*"}) {
            if (code == Code::other && isOutsideOfTexts(sign)) code = Code::comment;
        }
        if (code == Code::other && isOutsideOfTexts(u";")) code = Code::continuation;
        if (code == Code::comment && !hasComment()) code = Code::other;
        found_.push_back({code, root, {0, static_cast<std::uint32_t>(formula_.size())}});
    }

    /// Texts stand in the tree in their order in the formula.
    bool isOutsideOfTexts(std::u16string_view sign) const {
        std::size_t at = formula_.find(sign);
        for (Node const& node : tree_.nodes) {
            if (at == std::u16string_view::npos) return false;
            if (node.kind != NodeKind::text || node.place.end <= at) continue;
            if (at < node.place.start) return true;
            at = formula_.find(sign, node.place.end);
        }
        return at != std::u16string_view::npos;
    }

    bool hasComment() const {
        return isOutsideOfTexts(u"//") || isOutsideOfTexts(u"&&") || isOutsideOfTexts(u"/*") ||
               trimmed(std::u16string(formula_)).starts_with(u"*");
    }

    /// Whether a rewriting converts to what it says itself.
    bool isProved(std::u16string const& rewriting) const {
        Tree tree;
        std::vector<Untranslatable> obstacles;
        Parser parser(rewriting, settings_, tree, obstacles);
        if (parser.parse()) return false;
        Converted const converted = convertFormula(rewriting);
        if (!converted.expression) return false;
        std::u16string const source = withKnownLetters(rewriting);
        if (!Comparison(tree, source, *converted.expression).isSame()) return false;
        auto const found = findDamage(tree, rewriting, settings_, obstacles);
        return std::none_of(found.begin(), found.end(), [](Found const& each) {
            return each.code == Code::functionUnknown || each.code == Code::nilName ||
                   each.code == Code::memberDot || isTextMinus(each.code);
        });
    }

    void report() {
        if (found_.empty()) return;
        Rewriter rewriter(tree_, formula_, settings_, found_);
        rewriteWhole(rewriter);
        if (result_.rewriting.empty() && hasParenthesisInText()) {
            rewriter.codeParentheses();
            rewriteWhole(rewriter);
        }
        for (Found const& each : found_) result_.findings.push_back(findingOf(each, rewriter));
    }

    void rewriteWhole(Rewriter& rewriter) {
        auto const root = static_cast<NodeIndex>(tree_.nodes.size() - 1);
        std::u16string whole = rewriter.rewrite(root);
        if (whole.empty()) return;
        Node const& node = tree_.nodes[root];
        whole = std::u16string(formula_.substr(0, node.place.start)) + whole +
                std::u16string(formula_.substr(node.place.end));
        if (isProved(whole)) result_.rewriting = std::move(whole);
    }

    bool hasParenthesisInText() const {
        return std::any_of(tree_.nodes.begin(), tree_.nodes.end(), [this](Node const& node) {
            return node.kind == NodeKind::text &&
                   formula_.substr(node.sign.start, node.sign.end - node.sign.start)
                           .find_first_of(u"()") != std::u16string_view::npos;
        });
    }

    CheckFinding findingOf(Found const& found, Rewriter& rewriter) const {
        Node const& node = tree_.nodes[found.node];
        CodeText const& text = textOf(found.code);
        CheckFinding finding;
        finding.code = found.code == Code::untranslatable ? found.name : text.name;
        finding.place = found.place;
        constexpr std::uint32_t kLongestShown = 200;
        if (node.place.end - node.place.start <= kLongestShown) {
            std::u16string const part(
                formula_.substr(node.place.start, node.place.end - node.place.start));
            finding.written = trimmed(Converter::_convert(part.c_str()));
        }
        finding.text.append(text.written).append(u"; meant: ").append(text.meant);
        std::u16string rewriting = rewriter.rewrite(found.node);
        // A rewriting of the whole formula proves those of its parts. Where there is none, parts
        // are proved alone; a formula with one finding has no other parts.
        bool const isKept = !result_.rewriting.empty() ||
                            (found_.size() > 1 && !rewriting.empty() && isProved(rewriting));
        if (isKept && !rewriting.empty()) {
            finding.rewritten = node.place;
            finding.rewriting = std::move(rewriting);
        }
        return finding;
    }

    std::u16string_view formula_;
    Settings const& settings_;
    Tree tree_;
    std::vector<Untranslatable> obstacles_;
    std::vector<Found> found_;
    Converted converted_;
    CheckResult result_;
};

}  // namespace

CheckResult check(std::u16string_view formula, Settings const& settings) {
    return Checked(formula, settings).run();
}

}  // namespace kx::translate
