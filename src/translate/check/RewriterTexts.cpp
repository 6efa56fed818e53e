// Texts that are made of numbers, or filled to a width. Only texts that are known to fit are
// rewritten, and only where no rounding shows: the installed functions round the binary number.
#include <algorithm>

#include "translate/Functions.h"
#include "translate/Letters.h"
#include "translate/check/Rewriter.h"

namespace kx::translate {
namespace {

constexpr double kMostWidth = 1000;

/// Results are whole, not negative, and shorter than ten digits: no text is longer.
bool isCount(Node const& node) {
    if (node.kind != NodeKind::call || node.function == nullptr) return false;
    std::u16string_view const function = node.function->row.name;
    return function == u"LEN" || function == u"AT" || function == u"RAT" || function == u"OCCURS";
}

/// `number` rounded half away from zero. Nothing where it has too many digits to be exact, or is
/// not decimal.
std::optional<std::u16string> rounded(std::u16string_view number, std::size_t decimals) {
    constexpr std::size_t kExactDigits = 15;
    if (number.find_first_not_of(u"0123456789.") != std::u16string_view::npos) return std::nullopt;
    std::size_t const point = std::min(number.find(u'.'), number.size());
    std::u16string digits = u"0";
    digits.append(number.substr(0, point));
    std::u16string_view fraction = number.substr(std::min(point + 1, number.size()));
    bool const isUp = fraction.size() > decimals && fraction[decimals] >= u'5';
    digits.append(fraction.substr(0, decimals));
    digits.append(decimals - std::min(decimals, fraction.size()), u'0');
    if (digits.size() > kExactDigits || number.size() > kExactDigits) return std::nullopt;
    for (std::size_t i = digits.size(); isUp && i-- > 0;) {
        digits[i] = static_cast<char16_t>(digits[i] == u'9' ? u'0' : digits[i] + 1);
        if (digits[i] != u'0') break;
    }
    std::size_t const whole = digits.size() - decimals;
    digits.erase(0, std::min(digits.find_first_not_of(u'0'), whole - 1));
    if (decimals > 0) digits.insert(digits.size() - decimals, 1, u'.');
    return digits;
}

/// Fills a literal up to `width` as STR or STRZERO does.
std::u16string inWidth(std::u16string number, std::size_t width, bool hasZeros) {
    if (number.size() > width) {
        number.assign(width, u'*');
        return number;
    }
    std::size_t const sign = hasZeros && number[0] == u'-' ? 1 : 0;
    number.insert(sign, width - number.size(), hasZeros ? u'0' : u' ');
    return number;
}

}  // namespace

Rewriter::Part Rewriter::literal(std::u16string_view text) {
    std::u16string written = safeText(text, inTexts_);
    bool const isSum = written.find(u'+') != std::u16string::npos;
    return {std::move(written), isSum ? Binding::sum : kOperandBinding, true};
}

Rewriter::Part Rewriter::renderNumberText(Node const& node, std::u16string_view function) {
    if (node.childCount == 0 || node.childCount > 3) return impossible();
    for (std::size_t i = 1; i < node.childCount; ++i) {
        Node const& limit = tree_.child(node, i);
        if (!isWholeFrom(limit, i == 1 ? 1 : 0) || limit.number > kMostWidth) return impossible();
    }
    bool const isTrimmed = function == u"NTOS";
    if (isTrimmed && node.childCount != 1) return impossible();
    Node const& number = tree_.child(node, 0);
    bool const hasWidth = node.childCount > 1;
    constexpr std::size_t kUsualWidth = 10;
    std::size_t width =
        hasWidth ? static_cast<std::size_t>(tree_.child(node, 1).number) : kUsualWidth;
    if (isCount(number)) {
        if (node.childCount > 2 || width < kUsualWidth - 1) return impossible();
        if (isTrimmed) return {u"\"\"+" + operand(node.firstChild), Binding::sum, true};
        std::u16string const wide = sizeText(width);
        std::u16string const filling = function == u"STRZERO" ? u"REPLICATE(\"0\"," : u"SPACE(";
        return operandPart(u"RIGHT(" + filling + wide + u")+" + operand(node.firstChild) + u"," +
                           wide + u")");
    }
    bool const isNegative = number.kind == NodeKind::sign && number.isNegative;
    Node const& digits = number.kind == NodeKind::sign ? tree_.child(number, 0) : number;
    if (digits.kind != NodeKind::number || digits.scale < 0) return impossible();
    std::size_t decimals = hasWidth ? 0 : static_cast<std::size_t>(digits.scale);
    if (node.childCount > 2) decimals = static_cast<std::size_t>(tree_.child(node, 2).number);
    auto text = rounded(written(digits.place), decimals);
    if (!text) return impossible();
    bool const isZero = text->find_first_not_of(u"0.") == std::u16string::npos;
    if (isNegative && !isZero) text->insert(0, 1, u'-');
    if (isTrimmed) return literal(*text);
    if (!hasWidth && decimals > 0) width += decimals + 1;
    if (!hasWidth && text->size() > width) return impossible();
    return literal(inWidth(std::move(*text), width, function == u"STRZERO"));
}

/// VAL of a literal.
Rewriter::Part Rewriter::renderValue(Node const& node) {
    Node const& argument = tree_.child(node, 0);
    if (argument.kind != NodeKind::text || argument.isEscaped) return impossible();
    std::u16string_view text = written(argument.sign);
    text.remove_prefix(std::min(text.find_first_not_of(u" \t\r\n"), text.size()));
    bool const isNegative = text.starts_with(u'-');
    if (isNegative || text.starts_with(u'+')) text.remove_prefix(1);
    std::size_t end = 0;
    while (end < text.size() && isDigit(text[end])) ++end;
    std::size_t const whole = end;
    if (end < text.size() && text[end] == u'.') ++end;
    while (end < text.size() && isDigit(text[end])) ++end;
    std::u16string_view fraction =
        text.substr(std::min(whole + 1, end), end - std::min(whole + 1, end));
    std::u16string_view digits = text.substr(0, whole);
    while (digits.size() > 1 && digits[0] == u'0') digits.remove_prefix(1);
    std::u16string number(digits.empty() ? u"0" : digits);
    if (!fraction.empty()) number.append(u".").append(fraction);
    return operandPart(isNegative ? u"(-" + number + u")" : number);
}

/// The text of PADx's first argument, an expression in front of a "+"; nothing where its kind is
/// not known, or its decimals.
std::optional<std::u16string> Rewriter::paddedText(NodeIndex index) {
    if (tree_.nodes[index].valueKind == Kind::text) {
        Part part = render(index);
        if (!part.isPossible) isPossible_ = false;
        return std::move(part.text);
    }
    if (isCount(tree_.nodes[index])) return u"\"\"+" + operand(index);
    return std::nullopt;
}

Rewriter::Part Rewriter::renderPadded(Node const& node, std::u16string_view function) {
    if (node.childCount < 2 || node.childCount > 3) return impossible();
    Node const& limit = tree_.child(node, 1);
    if (!isWholeFrom(limit, 1) || limit.number > kMostWidth) return impossible();
    std::u16string const width = decimalText(static_cast<std::int64_t>(limit.number));
    std::u16string filling = u"SPACE(";
    if (node.childCount == 3) {
        Node const& filler = tree_.child(node, 2);
        bool const isLiteral = filler.kind == NodeKind::text && !filler.isEscaped &&
                               filler.sign.start < filler.sign.end;
        if (!isLiteral) return impossible();
        filling = u"REPLICATE(" + safeText(source_.substr(filler.sign.start, 1), inTexts_) + u",";
    }
    auto const text = paddedText(node.firstChild);
    if (!text) return impossible();
    Node const& padded = tree_.child(node, 0);
    bool const isSum = padded.valueKind != Kind::text || padded.kind == NodeKind::binary;
    std::u16string const all = filling + width + u")";
    if (function == u"PADR") {
        return operandPart(u"LEFT(" + (isSum ? u"(" + *text + u")" : *text) + u"+" + all + u"," +
                           width + u")");
    }
    bool const fits =
        padded.valueKind == Kind::text && textLength(tree_, padded).most <= limit.number && !isSum;
    std::u16string const cut = fits ? *text : u"LEFT(" + *text + u"," + width + u")";
    if (function == u"PADL") {
        return operandPart(u"RIGHT(" + all + u"+" + cut + u"," + width + u")");
    }
    return operandPart(u"LEFT(" + filling + u"FLOOR((" + width + u"-LEN(" + cut + u"))/2))+" + cut +
                       u"+" + all + u"," + width + u")");
}

/// Blanks at the end of the first text go to the end of the whole.
Rewriter::Part Rewriter::renderTextMinus(Node const& node) {
    NodeIndex const left = node.firstChild;
    NodeIndex const right = tree_.nodes[left].nextSibling;
    Node const& first = tree_.nodes[left];
    if (first.valueKind != Kind::text || tree_.nodes[right].valueKind != Kind::text) {
        return impossible();
    }
    if (!mayEndInBlank(left)) {
        return {operand(left) + u"+" + operand(right), Binding::sum, true};
    }
    if (first.kind != NodeKind::text || first.isEscaped) return impossible();
    std::u16string_view const content = written(first.sign);
    std::size_t const end = content.find_last_not_of(u' ') + 1;
    std::u16string text = safeText(content.substr(0, end), inTexts_) + u"+" + operand(right) +
                          u"+" + safeText(content.substr(end), inTexts_);
    return {std::move(text), Binding::sum, true};
}

}  // namespace kx::translate
