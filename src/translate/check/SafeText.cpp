#include "translate/check/SafeText.h"

#include "convert/Converter.h"
#include "text/NumberText.h"
#include "text/WhiteSpace.h"
#include "translate/Letters.h"

namespace kx::translate {
namespace {

/// Joins literals and calls.
class Sum {
  public:
    void add(char16_t unit) {
        if (!isOpen_) {
            if (!text_.empty()) text_ += u'+';
            text_ += u'"';
            isOpen_ = true;
        }
        text_ += unit;
    }
    void addCall(std::u16string_view call) {
        close();
        if (!text_.empty()) text_ += u'+';
        text_ += call;
    }
    void close() {
        if (isOpen_) text_ += u'"';
        isOpen_ = false;
    }
    std::u16string take() {
        close();
        return text_.empty() ? u"\"\"" : std::move(text_);
    }

  private:
    std::u16string text_;
    bool isOpen_ = false;
};

std::u16string codeCall(char16_t unit) { return u"CHR(" + decimalText(unit) + u")"; }

/// Ends a literal behind every so many units of a word, and in front of signs; 0: nowhere.
std::u16string write(std::u16string_view text, std::size_t splitBehind, Parentheses parentheses) {
    Sum sum;
    std::size_t wordStart = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char16_t const unit = text[i];
        bool const isCoded = parentheses == Parentheses::coded && (unit == u'(' || unit == u')');
        if (isCoded || unit == u'"' || unit == u'\'' || unit == u'\\' || unit == u'\t') {
            sum.addCall(codeCall(unit));
            continue;
        }
        if (unit == u' ') {
            std::size_t end = i;
            while (end < text.size() && text[end] == u' ') ++end;
            if (end - i > 1) {
                sum.addCall(u"SPACE(" + decimalText(static_cast<std::int64_t>(end - i)) + u")");
                i = end - 1;
                continue;
            }
        }
        bool const isInWord = isNamePart(unit);
        if (!isInWord) wordStart = i + 1;
        bool const isSplit =
            splitBehind > 0 && isInWord && i > wordStart && (i - wordStart) % splitBehind == 0;
        bool const isOperator = splitBehind > 0 && !isInWord && !isWhiteSpace(unit) && i > 0;
        if (isSplit || isOperator) sum.close();
        sum.add(unit);
    }
    return sum.take();
}

/// Whether the conversion leaves each literal as it is, seen alone.
bool doLiteralsSurvive(std::u16string_view sum) {
    for (std::size_t open = sum.find(u'"'); open != std::u16string_view::npos;) {
        std::size_t const close = sum.find(u'"', open + 1);
        std::u16string const literal(sum.substr(open, close + 1 - open));
        if (Converter::_convert(literal.c_str()) != literal) return false;
        open = sum.find(u'"', close + 1);
    }
    return true;
}

}  // namespace

std::u16string safeText(std::u16string_view text, Parentheses parentheses) {
    // Short pieces are harder to read, so they come last.
    for (std::size_t const splitBehind : {0, 2}) {
        std::u16string sum = write(text, splitBehind, parentheses);
        if (doLiteralsSurvive(sum)) return sum;
    }
    return write(text, 1, parentheses);
}

}  // namespace kx::translate
