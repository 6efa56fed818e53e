#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "translate/Operators.h"
#include "translate/Scanner.h"
#include "translate/Settings.h"
#include "translate/SyntaxError.h"
#include "translate/Tree.h"

namespace kx::translate {

/// Trees may be so high; functions that call themselves for each child are safe.
inline constexpr std::uint16_t kMostHeight = 500;

/// Parentheses, signs and calls may be nested so deep. So many levels take little more than half a
/// megabyte of stack.
inline constexpr std::uint32_t kMostNesting = 600;

/// Something in a formula that the translation has no JavaScript for.
struct Untranslatable {
    std::u16string_view code;
    Place place;
    NodeIndex node = kNoNode;
    std::u16string text;
};

/// Operator-precedence parser: one loop for all binary operators, by the table of operators.
class Parser {
  public:
    Parser(std::u16string_view source, Settings const& settings, Tree& tree,
           std::vector<Untranslatable>& findings);

    /// Fills the tree. Returns what is wrong where the text is no formula.
    std::optional<SyntaxError> parse();

  private:
    using Type = Token::Type;

    /// A node, and its place with the parentheses around it.
    struct Operand {
        NodeIndex node = kNoNode;
        std::uint32_t start = 0;
        std::uint32_t end = 0;
    };

    /// Appends children to a node that is not made yet.
    struct Children {
        NodeIndex first = kNoNode;
        NodeIndex last = kNoNode;
        std::uint32_t count = 0;
        std::uint16_t height = 0;
    };

    Operand whole(Place part);
    Operand expression(Binding least);
    Operand prefix();
    Operand operand();
    Operand suffixes(Operand operand);
    Operand sign(Token const& token);
    Operand negation(Token const& token);
    [[gnu::noinline]] Operand increment(Token const& token);
    Operand parenthesis(Token const& token);
    [[gnu::noinline]] Operand list(Operand first);
    [[gnu::noinline]] Operand brace(Token const& token);
    [[gnu::noinline]] Operand block(Token const& opening);
    [[gnu::noinline]] Operand macro(Token const& token);
    [[gnu::noinline]] void member(Children& children);
    [[gnu::noinline]] Operand object(Token const& token);
    Operand nameOrCall(Token const& word);
    Operand call(Token const& name);
    Children arguments(Type closing);
    // Functions that call themselves by way of others have small frames; what needs large ones is
    // kept out of them.
    [[gnu::noinline]] Operand name(Token const& first);
    [[gnu::noinline]] Operand finishCall(Token const& name, Children const& children);
    [[gnu::noinline]] Operand omittedArgument();
    [[gnu::noinline]] void closeArguments(Type closing);
    [[gnu::noinline]] Operand typeOf(Token const& name, Children const& arguments);
    [[gnu::noinline]] Operand leaf(Token const& token, NodeKind kind);
    Operand binary(Operand const& left, Token const& sign);
    bool isPostfix(Token const& increment);
    void splitSigns(Token& token);

    Token peek();
    void take(Token const& token);
    bool takeIf(Type type);
    Token expectName(std::u16string_view where);
    void expect(Type type, std::u16string_view sign);
    void append(Children& children, Operand const& child);
    [[gnu::noinline]] Operand add(Node node, Children const& children, std::uint32_t start);
    [[gnu::noinline]] Operand addUntranslatable(std::u16string_view code, std::u16string_view text,
                                                Place sign, Children const& children,
                                                std::uint32_t start);
    void storeUpperCase(Node& node, std::u16string_view text);
    Node& node(Operand const& operand) { return tree_.nodes[operand.node]; }
    std::u16string described(Token const& token) const;
    [[noreturn, gnu::noinline]] void failExpected(std::u16string_view what,
                                                  Token const& found) const;
    void descend();

    Settings const& settings_;
    Tree& tree_;
    std::vector<Untranslatable>& findings_;
    Scanner scanner_;
    Token peeked_;
    bool isPeeked_ = false;
    std::uint32_t end_ = 0;            // of what was taken last
    std::uint32_t depth_ = 0;          // of nested calls of prefix()
    std::uint32_t signsAt_ = kNoNode;  // where a row of signs goes on
};

}  // namespace kx::translate
