// Trees written as text, with no more parentheses than needed, are parsed to the same trees.
#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "support/Utf8.h"
#include "translate/Parser.h"

namespace {

using kx::translate::Node;
using kx::translate::NodeKind;
using kx::translate::Operator;
using kx::translate::Tree;

/// A formula independent of any text.
struct Model {
    NodeKind kind = NodeKind::number;
    Operator op = Operator::none;
    std::string text;  // of leaves, the names of calls, "+" or "-" of signs
    std::vector<Model> children;

    bool operator==(Model const&) const = default;
};

struct Spelling {
    Operator op;
    int binding;
    std::vector<std::string> texts;
};

std::vector<Spelling> const kSpellings = {
    {Operator::logicalOr, 1, {" .OR. ", " or ", ".or."}},
    {Operator::logicalXor, 2, {" .XOR. ", " xor "}},
    {Operator::logicalAnd, 3, {" .AND. ", " and ", ".AND.", ". and ."}},
    {Operator::equal, 5, {"=", " = "}},
    {Operator::identical, 5, {"==", " == "}},
    {Operator::unequal, 5, {"<>", "#", "!=", " /= "}},
    {Operator::less, 6, {"<", " < "}},
    {Operator::greater, 6, {">", " > "}},
    {Operator::lessOrEqual, 6, {"<=", "=<"}},
    {Operator::greaterOrEqual, 6, {">=", " => "}},
    {Operator::contained, 6, {"$", " $ "}},
    {Operator::add, 7, {"+", " +"}},
    {Operator::subtract, 7, {" - ", " -\t"}},
    {Operator::multiply, 8, {"*", " *\n"}},
    {Operator::divide, 8, {" / ", "\\", " DIV "}},
    {Operator::remainder, 8, {"%"}},
    {Operator::power, 9, {"^", "**"}},
};
constexpr int kNegation = 4;
constexpr int kSign = 10;
constexpr int kOperand = 11;

class Generator {
  public:
    explicit Generator(std::uint32_t seed) : random_(seed) {}

    std::size_t below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
    }
    std::string oneOf(std::vector<std::string> const& texts) { return texts[below(texts.size())]; }

    Model tree(int depth) {
        if (depth == 0 || below(6) == 0) return leaf();
        Model model;
        switch (below(8)) {
            case 0:
                model.kind = NodeKind::negation;
                model.children = {tree(depth - 1)};
                return model;
            case 1:
                model.kind = NodeKind::sign;
                model.text = oneOf({"+", "-"});
                model.children = {tree(depth - 1)};
                return model;
            case 2:
                model.kind = NodeKind::call;
                model.text = oneOf({"LEN", "MAX", "SUBSTR", "NOSUCH"});
                for (std::size_t i = below(4); i > 0; --i) {
                    model.children.push_back(tree(depth - 1));
                }
                return model;
            case 3:
                model.kind = NodeKind::choice;
                for (std::size_t i = 2 + below(2); i > 0; --i) {
                    model.children.push_back(tree(depth - 1));
                }
                return model;
            default:
                model.kind = NodeKind::binary;
                model.op = kSpellings[below(kSpellings.size())].op;
                model.children = {tree(depth - 1), tree(depth - 1)};
                return model;
        }
    }

    std::string text(Model const& model) { return write(model); }

  private:
    Model leaf() {
        switch (below(5)) {
            case 0:
                return {NodeKind::number, {}, oneOf({"0", "12", "1.5", "007", "1E5", "0x1F"}), {}};
            case 1:
                return {NodeKind::text, {}, oneOf({"'a'", "\"it's\"", "[x y]", "''"}), {}};
            case 2:
                return {NodeKind::logical, {}, oneOf({".T.", ".f.", "TRUE"}), {}};
            case 3:
                return {NodeKind::date, {}, oneOf({"{^2020-01-31}", "0d20200131", "{//}"}), {}};
            default:
                return {NodeKind::name, {}, oneOf({"A", "b_1", "CUST->NAME", "x.y"}), {}};
        }
    }

    static int bindingOf(Model const& model) {
        switch (model.kind) {
            case NodeKind::negation:
                return kNegation;
            case NodeKind::sign:
                return kSign;
            case NodeKind::binary:
                for (Spelling const& spelling : kSpellings) {
                    if (spelling.op == model.op) return spelling.binding;
                }
                return 0;
            default:
                return kOperand;
        }
    }

    std::string inParentheses(Model const& model, bool areNeeded) {
        return areNeeded ? "(" + write(model) + ")" : write(model);
    }

    std::string write(Model const& model) {
        switch (model.kind) {
            case NodeKind::negation:
                return oneOf({"!", ".NOT. ", "NOT "}) +
                       inParentheses(model.children[0], bindingOf(model.children[0]) < kNegation);
            case NodeKind::sign:
                return model.text + (bindingOf(model.children[0]) < kSign
                                         ? "(" + write(model.children[0]) + ")"
                                         : (model.children[0].kind == NodeKind::sign ? " " : "") +
                                               write(model.children[0]));
            case NodeKind::call:
            case NodeKind::choice: {
                std::string text =
                    (model.kind == NodeKind::choice ? oneOf({"IIF", "if"}) : model.text) + "(";
                for (Model const& child : model.children) {
                    if (text.back() != '(') text += oneOf({",", " , "});
                    text += write(child);
                }
                return text + ")";
            }
            case NodeKind::binary:
                for (Spelling const& spelling : kSpellings) {
                    if (spelling.op != model.op) continue;
                    // A negation takes all that follows it, so on the left it stands alone.
                    Model const& left = model.children[0];
                    Model const& right = model.children[1];
                    bool const isOpen = endsWithNegation(left) && spelling.binding > kNegation;
                    bool const startsWithSign = right.kind == NodeKind::sign;
                    std::string const sign = oneOf(spelling.texts);
                    return inParentheses(left, bindingOf(left) < spelling.binding || isOpen) +
                           sign + (startsWithSign ? " " : "") +
                           inParentheses(right, bindingOf(right) <= spelling.binding);
                }
                return {};
            default:
                return model.text;
        }
    }

    static bool endsWithNegation(Model const& model) {
        if (model.kind == NodeKind::negation) return true;
        if (model.kind == NodeKind::binary) return endsWithNegation(model.children[1]);
        return model.kind == NodeKind::sign && endsWithNegation(model.children[0]);
    }

    std::mt19937 random_;
};

Model modelOf(Tree const& tree, std::string const& source, Node const& node) {
    Model model{node.kind, node.op, {}, {}};
    for (auto at = node.firstChild; at != kx::translate::kNoNode; at = tree.nodes[at].nextSibling) {
        model.children.push_back(modelOf(tree, source, tree.nodes[at]));
    }
    bool const isLeaf = model.children.empty() && node.kind != NodeKind::call;
    if (isLeaf) {
        model.text = source.substr(node.place.start, node.place.end - node.place.start);
    } else if (node.kind == NodeKind::call) {
        model.text = kx::test::toUtf8(tree.text(node));
    } else if (node.kind == NodeKind::sign) {
        model.text = node.isNegative ? "-" : "+";
    }
    return model;
}

TEST(RoundTrip, TreesComeBackFromTheirText) {
    constexpr std::uint32_t kRounds = 20000;
    std::size_t longest = 0;
    for (std::uint32_t seed = 0; seed < kRounds; ++seed) {
        Generator generator(seed);
        Model const model = generator.tree(1 + static_cast<int>(seed % 6));
        std::string const text = generator.text(model);
        longest = std::max(longest, text.size());
        Tree tree;
        std::vector<kx::translate::Untranslatable> findings;
        kx::translate::Settings const settings;
        std::u16string const source = kx::test::toUtf16(text);
        kx::translate::Parser parser(source, settings, tree, findings);
        auto const error = parser.parse();
        ASSERT_FALSE(error.has_value()) << seed << ' ' << text << '\n'
                                        << kx::test::toUtf8(error->text);
        ASSERT_EQ(modelOf(tree, text, tree.root()), model) << seed << ' ' << text;
    }
    EXPECT_GT(longest, 500U);
}

}  // namespace
