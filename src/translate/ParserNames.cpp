// Variables and calls.
#include <utility>

#include "text/ReservedWords.h"
#include "translate/Functions.h"
#include "translate/Letters.h"
#include "translate/Parser.h"

namespace kx::translate {
namespace {

bool isReserved(std::u16string_view upperCaseName) {
    return upperCaseName == u"KX" || upperCaseName == u"OURACCESSOR";
}

}  // namespace

/// A variable, with what "->" and "." put in front of it; or a call.
Parser::Operand Parser::name(Token const& first) {
    Node made;
    made.kind = NodeKind::name;
    made.sign = first.place;
    storeUpperCase(made, scanner_.text(first.place));
    bool isFirst = true;
    for (;; isFirst = false) {
        Token const link = peek();
        if (link.type != Type::arrow && link.type != Type::point) break;
        bool const isArrow = link.type == Type::arrow;
        take(link);
        Token const next = scanner_.operand();
        if ((isArrow && next.type == Type::open) || next.type == Type::macro) {
            Children children;
            append(children, prefix());
            return isArrow ? addUntranslatable(u"ALIAS_EXPRESSION", u"an expression of a work area",
                                               link.place, children, first.place.start)
                           : addUntranslatable(u"OBJECT", u"a member of an object", link.place,
                                               children, first.place.start);
        }
        take(expectName(isArrow ? u"behind \"->\"" : u"behind the point"));
        std::u16string_view const prefix = tree_.text(made);
        bool const isDropped =
            isFirst && (prefix == u"M" || (isArrow && (prefix == u"MEMVAR" || prefix == u"FIELD" ||
                                                       prefix == u"_FIELD")));
        if (isDropped) {
            tree_.texts.resize(made.textStart);
            made.textLength = 0;
        } else {
            tree_.texts += u'$';
            ++made.textLength;
        }
        (isArrow ? made.hasArrow : made.hasPoint) = true;
        std::u16string_view const part =
            scanner_.source().substr(next.place.start, end_ - next.place.start);
        for (char16_t const unit : part) tree_.texts += upperCase(unit);
        made.textLength += static_cast<std::uint32_t>(part.size());
    }
    if (peek().type == Type::open) {
        Token const open = peek();
        take(open);
        Children const children = arguments(Type::close);
        bool const isObject = !made.hasArrow;
        return addUntranslatable(isObject ? u"OBJECT" : u"ALIAS_EXPRESSION",
                                 isObject ? u"a method of an object" : u"a function of a work area",
                                 first.place, children, first.place.start);
    }
    if (isReserved(tree_.text(made))) {
        std::u16string text = u"the name ";
        text.append(tree_.text(made)).append(u" is reserved");
        return addUntranslatable(u"RESERVED_NAME", text, first.place, {}, first.place.start);
    }
    auto const known = settings_.variables.find(tree_.text(made));
    if (known != settings_.variables.end()) {
        if (isReservedWord(known->second.key)) {
            std::u16string text = u"the name ";
            text.append(known->second.key).append(u" is a reserved word of JavaScript");
            return addUntranslatable(u"RESERVED_NAME", text, first.place, {}, first.place.start);
        }
        made.valueKind = known->second.kind;
    } else if (settings_.isStrict) {
        std::u16string text = u"unknown name ";
        text.append(tree_.text(made));
        return addUntranslatable(u"NAME_UNKNOWN", text, first.place, {}, first.place.start);
    }
    return add(made, {}, first.place.start);
}

Parser::Operand Parser::call(Token const& name) {
    take(peek());
    Children const children = arguments(Type::close);
    return finishCall(name, children);
}

Parser::Operand Parser::nameOrCall(Token const& word) {
    take(word);
    return peek().type == Type::open ? call(word) : name(word);
}

Parser::Operand Parser::finishCall(Token const& name, Children const& children) {
    Node made;
    made.kind = NodeKind::call;
    made.sign = name.place;
    storeUpperCase(made, scanner_.text(name.place));
    std::u16string const upper(tree_.text(made));
    bool const isChoice = upper == u"IIF" || upper == u"IF";
    FunctionName const meaning = isChoice ? FunctionName{} : findFunction(upper);
    if (isChoice) {
        made.kind = NodeKind::choice;
        return add(made, children, name.place.start);
    }
    if (upper == u"TYPE") return typeOf(name, children);
    std::u16string text;
    switch (meaning.meaning) {
        case FunctionName::Meaning::language:
            made.callee = Callee::language;
            made.function = meaning.function;
            break;
        case FunctionName::Meaning::installed:
            made.callee = Callee::installed;
            break;
        case FunctionName::Meaning::cases:
            made.callee = Callee::cases;
            break;
        case FunctionName::Meaning::evaluation:
            return addUntranslatable(u"MACRO", u"a text that is evaluated at run time", name.place,
                                     children, name.place.start);
        case FunctionName::Meaning::ambiguous:
            text = u"several functions begin with " + upper;
            return addUntranslatable(u"AMBIGUOUS_NAME", text, name.place, children,
                                     name.place.start);
        case FunctionName::Meaning::unknown:
            if (settings_.functions.find(upper) == settings_.functions.end()) {
                text = u"unknown function " + upper;
                findings_.push_back({u"FUNCTION_UNKNOWN", name.place, kNoNode, text});
            } else {
                made.callee = Callee::host;
            }
            break;
    }
    return add(made, children, name.place.start);
}

/// TYPE of a text literal: the expression in the text is parsed where it stands.
Parser::Operand Parser::typeOf(Token const& name, Children const& arguments) {
    bool const isText = arguments.count == 1 &&
                        tree_.nodes[arguments.first].kind == NodeKind::text &&
                        !tree_.nodes[arguments.first].isEscaped;
    if (!isText) {
        return addUntranslatable(u"TYPE_TEXT", u"TYPE of what is no text literal", name.place,
                                 arguments, name.place.start);
    }
    Place const content = tree_.nodes[arguments.first].sign;
    std::uint32_t const end = end_;
    std::uint32_t const depth = depth_;
    Scanner const outer = scanner_;
    std::size_t const findingCount = findings_.size();
    std::size_t const nodeCount = tree_.nodes.size();
    Children children;
    try {
        append(children, whole(content));
    } catch (SyntaxError const& error) {
        if (depth_ > kMostNesting) throw;
        // Its evaluation would fail: the kind is "U", and there is no child.
        scanner_ = outer;
        isPeeked_ = false;
        depth_ = depth;
        findings_.resize(findingCount);
        tree_.nodes.resize(nodeCount);
        children = {};
    }
    end_ = end;
    Node made;
    made.kind = NodeKind::type;
    made.sign = name.place;
    made.valueKind = Kind::text;
    return add(made, children, name.place.start);
}

}  // namespace kx::translate
