#include "translate/Emitter.h"

#include <array>
#include <charconv>

#include "text/Surrogates.h"
#include "translate/Functions.h"
#include "translate/Operators.h"

namespace kx::translate {
namespace {

constexpr std::u16string_view kHexadecimal = u"0123456789abcdef";

class Emitter {
  public:
    Emitter(Tree const& tree, std::u16string_view source, Settings const& settings)
        : tree_(tree), source_(source), settings_(settings) {
        constexpr std::size_t kUsualFactor = 3;
        js_.reserve(source.size() * kUsualFactor);
    }

    std::u16string run() {
        Node const& root = tree_.root();
        bool const mayBeDate = root.valueKind == Kind::date || root.valueKind == Kind::unknown;
        bool const isWrapped = settings_.hasOwnDateFormat && mayBeDate;
        if (isWrapped) open(u"result");
        write(root);
        if (isWrapped) js_ += u')';
        return std::move(js_);
    }

  private:
    void open(std::u16string_view function) {
        js_ += settings_.runTime;
        js_ += u'.';
        js_ += function;
        js_ += u'(';
    }

    void write(Node const& node) {
        switch (node.kind) {
            case NodeKind::number:
                writeNumber(node);
                break;
            case NodeKind::text:
                writeText(node);
                break;
            case NodeKind::date:
                open(u"jd");
                writeValue(node.number);
                js_ += u')';
                break;
            case NodeKind::logical:
                js_ += node.isNegative ? u"false" : u"true";
                break;
            case NodeKind::nil:
                js_ += u"null";
                break;
            case NodeKind::omitted:
                js_ += u"void 0";
                break;
            case NodeKind::name:
                js_ += variableKey(tree_, node, settings_);
                break;
            case NodeKind::negation:
                writeNegation(tree_.child(node, 0));
                break;
            case NodeKind::sign:
                open(node.isNegative ? u"neg" : u"pos");
                write(tree_.child(node, 0));
                js_ += u')';
                break;
            case NodeKind::binary:
                writeBinary(node);
                break;
            case NodeKind::choice:
                writeChoice(node);
                break;
            case NodeKind::call:
                writeCall(node);
                break;
            case NodeKind::type:
                writeType(node);
                break;
            case NodeKind::untranslatable:
                break;  // has no JavaScript, and its formula none
        }
    }

    void writeValue(double value) {
        std::array<char, 32> digits{};
        auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
        js_.append(digits.data(), end);
    }

    /// As it is written, since JavaScript reads digits as this language does; but for what it
    /// reads as octal or not at all.
    void writeNumber(Node const& node) {
        std::u16string_view digits =
            source_.substr(node.place.start, node.place.end - node.place.start);
        while (digits.size() > 1 && digits[0] == u'0' && digits[1] >= u'0' && digits[1] <= u'9') {
            digits.remove_prefix(1);
        }
        js_ += digits;
        if (digits.back() == u'.') js_ += u'0';
    }

    void writeEscaped(char16_t unit) {
        js_ += u"\\u";
        for (int shift = 12; shift >= 0; shift -= 4) js_ += kHexadecimal[(unit >> shift) & 0xF];
    }

    void writeUnit(char16_t unit) {
        if (unit == u'"' || unit == u'\\') {
            js_ += u'\\';
            js_ += unit;
        } else if (unit < u' ' || unit == u'\u2028' || unit == u'\u2029') {
            writeEscaped(unit);
        } else {
            js_ += unit;
        }
    }

    void writeText(Node const& node) {
        std::u16string_view const text =
            source_.substr(node.sign.start, node.sign.end - node.sign.start);
        js_ += u'"';
        for (std::size_t i = 0; i < text.size(); ++i) {
            bool const isPair =
                isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1]);
            // The same escapes as JavaScript's.
            if (isPair || (node.isEscaped && text[i] == u'\\')) {
                js_ += text[i++];
                js_ += text[i];
            } else if (isHighSurrogate(text[i]) || isLowSurrogate(text[i])) {
                writeEscaped(text[i]);
            } else {
                writeUnit(text[i]);
            }
        }
        js_ += u'"';
    }

    void writeLogical(Node const& node, std::u16string_view user) {
        if (node.valueKind == Kind::logical) {
            write(node);
            return;
        }
        open(u"l");
        write(node);
        js_ += u",\"";
        js_ += user;
        js_ += u"\")";
    }

    void writeNegation(Node const& operand) {
        if (operand.valueKind == Kind::logical) {
            js_ += u"(!";
            write(operand);
        } else {
            open(u"not");
            write(operand);
        }
        js_ += u')';
    }

    /// Whether JavaScript's own comparison does the same.
    static bool isPlain(Node const& left, Node const& right) {
        return left.valueKind == right.valueKind &&
               (left.valueKind == Kind::number || left.valueKind == Kind::logical);
    }

    static std::u16string_view plainSign(Operator op) {
        switch (op) {
            case Operator::equal:
            case Operator::identical:
                return u"===";
            case Operator::unequal:
                return u"!==";
            case Operator::less:
                return u"<";
            case Operator::greater:
                return u">";
            case Operator::lessOrEqual:
                return u"<=";
            case Operator::greaterOrEqual:
                return u">=";
            default:
                return {};
        }
    }

    void writeBinary(Node const& node) {
        Node const& left = tree_.child(node, 0);
        Node const& right = tree_.child(node, 1);
        OperatorTraits const& operation = traits(node.op);
        if (node.op == Operator::logicalAnd || node.op == Operator::logicalOr) {
            js_ += u'(';
            writeLogical(left, operation.name);
            js_ += node.op == Operator::logicalAnd ? u"&&" : u"||";
            writeLogical(right, operation.name);
            js_ += u')';
            return;
        }
        std::u16string_view const plain = plainSign(node.op);
        if (!plain.empty() && isPlain(left, right)) {
            js_ += u'(';
            write(left);
            js_ += plain;
            write(right);
            js_ += u')';
            return;
        }
        bool const isOrder = operation.function == u"cmp";
        if (isOrder) js_ += u'(';
        open(operation.function);
        write(left);
        js_ += u',';
        write(right);
        if (isOrder) {
            js_ += u",\"";
            js_ += operation.name;
            js_ += u"\")";
            js_ += plain;
            js_ += u'0';
        }
        js_ += u')';
    }

    void writeOr(std::u16string_view otherwise, Node const& node) {
        if (node.kind == NodeKind::omitted) {
            js_ += otherwise;
        } else {
            write(node);
        }
    }

    /// A call of IIF or ICASE with fewer arguments than two.
    void writeMissing(std::u16string_view name, Node const& node) {
        open(u"missing");
        js_ += u'"';
        js_ += name;
        js_ += u"\",";
        writeValue(node.childCount + 1);
        js_ += u')';
    }

    void writeChoice(Node const& node) {
        if (node.childCount < 2) {
            writeMissing(u"IIF", node);
            return;
        }
        bool const hasSurplus = node.childCount > 3;
        if (hasSurplus) open(u"first");
        js_ += u'(';
        writeLogical(tree_.child(node, 0), u"IIF");
        js_ += u'?';
        writeOr(u"null", tree_.child(node, 1));
        js_ += u':';
        if (node.childCount > 2) {
            writeOr(u"null", tree_.child(node, 2));
        } else {
            js_ += u"null";
        }
        js_ += u')';
        if (!hasSurplus) return;
        js_ += u',';
        writeArguments(tree_.child(node, 2).nextSibling, kNoNode);
        js_ += u')';
    }

    /// ICASE: pairs of a condition and a value, and what is left without a condition.
    void writeCases(Node const& node) {
        if (node.childCount < 2) {
            writeMissing(u"ICASE", node);
            return;
        }
        NodeIndex index = node.firstChild;
        js_ += u'(';
        while (index != kNoNode && tree_.nodes[index].nextSibling != kNoNode) {
            writeLogical(tree_.nodes[index], u"ICASE");
            js_ += u'?';
            index = tree_.nodes[index].nextSibling;
            writeOr(u"null", tree_.nodes[index]);
            js_ += u':';
            index = tree_.nodes[index].nextSibling;
        }
        if (index == kNoNode) {
            js_ += u"null";
        } else {
            writeOr(u"null", tree_.nodes[index]);
        }
        js_ += u')';
    }

    void writeCall(Node const& node) {
        switch (node.callee) {
            case Callee::cases:
                writeCases(node);
                return;
            case Callee::language:
                writeLanguageCall(node);
                return;
            case Callee::host:
                js_ += settings_.functions.find(tree_.text(node))->second;
                break;
            default:
                js_ += tree_.text(node);
                break;
        }
        js_ += u'(';
        writeArguments(node.firstChild, kNoNode);
        js_ += u')';
    }

    /// Arguments from `index` to the one before `end`.
    void writeArguments(NodeIndex index, NodeIndex end, std::u16string_view omitted = u"void 0") {
        for (bool isFirst = true; index != end; isFirst = false) {
            if (!isFirst) js_ += u',';
            writeOr(omitted, tree_.nodes[index]);
            index = tree_.nodes[index].nextSibling;
        }
    }

    void writeLanguageCall(Node const& node) {
        LanguageFunction const& function = *node.function;
        std::size_t const most = function.row.parameters.size();
        bool const hasSurplus = !function.isVariadic && node.childCount > most;
        NodeIndex end = kNoNode;
        if (hasSurplus) {
            open(u"first");
            end = node.firstChild;
            for (std::size_t i = 0; i < most; ++i) end = tree_.nodes[end].nextSibling;
        }
        js_ += settings_.runTime;
        js_ += u'.';
        for (char16_t const* unit = function.row.name; *unit != u'\0'; ++unit) {
            js_ +=
                *unit >= u'A' && *unit <= u'Z' ? static_cast<char16_t>(*unit - u'A' + u'a') : *unit;
        }
        js_ += u'(';
        writeArguments(node.firstChild, end, function.isOmittedNil ? u"null" : u"void 0");
        writeScale(node);
        js_ += u')';
        if (!hasSurplus) return;
        js_ += u',';
        writeArguments(end, kNoNode);
        js_ += u')';
    }

    /// The scale of the first argument, behind all parameters.
    void writeScale(Node const& node) {
        if (node.function->scaled == Scaled::no || node.childCount == 0) return;
        std::int16_t const scale = tree_.nodes[node.firstChild].scale;
        if (scale == kNoScale) return;
        for (std::size_t i = node.childCount; i < node.function->row.parameters.size(); ++i) {
            js_ += u",void 0";
        }
        js_ += u',';
        writeValue(scale);
    }

    void writeType(Node const& node) {
        if (node.childCount == 0) {
            js_ += u"\"U\"";
            return;
        }
        open(u"type");
        js_ += u"()=>";
        write(tree_.child(node, 0));
        js_ += u')';
    }

    Tree const& tree_;
    std::u16string_view source_;
    Settings const& settings_;
    std::u16string js_;
};

}  // namespace

std::u16string_view variableKey(Tree const& tree, Node const& name, Settings const& settings) {
    auto const known = settings.variables.find(tree.text(name));
    return known == settings.variables.end() ? tree.text(name)
                                             : std::u16string_view(known->second.key);
}

std::u16string emit(Tree const& tree, std::u16string_view source, Settings const& settings) {
    return Emitter(tree, source, settings).run();
}

}  // namespace kx::translate
