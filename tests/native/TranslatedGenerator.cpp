#include "TranslatedGenerator.h"

#include <string_view>
#include <utility>

namespace {

using namespace std::string_view_literals;

constexpr std::array kNumbers = {
    u"A"sv,
    u"B"sv,
    u"C"sv,
    u"A"sv,
    u"B"sv,
    u"0"sv,
    u"1"sv,
    u"2"sv,
    u"3"sv,
    u"(-1)"sv,
    u"2.5"sv,
    u"0.045"sv,
    u"2.675"sv,
    u"1.005"sv,
    u"(-0.5)"sv,
    u"99.995"sv,
    u"12345.678"sv,
    u"1000000"sv,
    u"1e15"sv,
    u"1e-7"sv,
    u"255"sv,
    u"100000000000000.5"sv,
    u"9999999999.5"sv,
    u"1e300"sv,
};
constexpr std::array kTexts = {
    u"S"sv,
    u"T"sv,
    u"U"sv,
    u"S"sv,
    u"T"sv,
    u"''"sv,
    u"' '"sv,
    u"'a'"sv,
    u"'abc'"sv,
    u"'ab  '"sv,
    u"'  x y '"sv,
    u"'12'"sv,
    u"' -12.5x'"sv,
    u"'.5'"sv,
    u"'b,a,b'"sv,
    u"'Ab cD'"sv,
    u"'\u00e9T\u00e9'"sv,
    u"'aaaa'"sv,
    u"'1E2'"sv,
};
constexpr std::array kLogicals = {u".T."sv, u".F."sv, u"A=B"sv, u"S=T"sv, u"A>1"sv, u"EMPTY(S)"sv};
constexpr std::array kNumberOperators = {u"+"sv, u"-"sv, u"*"sv, u"/"sv, u"%"sv, u"+"sv, u"^"sv};
constexpr std::array kComparisons = {u"="sv, u"=="sv, u"<>"sv, u"<"sv,
                                     u">"sv, u"<="sv, u">="sv, u"#"sv};
constexpr std::array kLogicalOperators = {u" AND "sv, u" OR "sv, u" XOR "sv, u".AND."sv};

/// A function and the kinds of its arguments, those in small letters may be left out: Number, text
/// (C), Logical, any (X).
struct Callee {
    std::u16string_view name;
    std::u16string_view arguments;
};

constexpr std::array kNumberFunctions = {
    Callee{u"LEN", u"C"},     Callee{u"AT", u"CCn"},          Callee{u"RAT", u"CCn"},
    Callee{u"OCCURS", u"CC"}, Callee{u"ASC", u"C"},           Callee{u"VAL", u"C"},
    Callee{u"VAL", u"C"},     Callee{u"INT", u"N"},           Callee{u"ROUND", u"NN"},
    Callee{u"ROUND", u"NN"},  Callee{u"ABS", u"N"},           Callee{u"MOD", u"NN"},
    Callee{u"MAX", u"NNn"},   Callee{u"MIN", u"NNn"},         Callee{u"SQRT", u"N"},
    Callee{u"SIGN", u"N"},    Callee{u"CEILING", u"N"},       Callee{u"FLOOR", u"N"},
    Callee{u"ATC", u"CC"},    Callee{u"GETWORDCOUNT", u"Cc"}, Callee{u"SIN", u"N"},
    Callee{u"YEAR", u"C"},
};
constexpr std::array kTextFunctions = {
    Callee{u"TRIM", u"C"},    Callee{u"LTRIM", u"C"},       Callee{u"ALLTRIM", u"C"},
    Callee{u"UPPER", u"C"},   Callee{u"LOWER", u"C"},       Callee{u"LEFT", u"CN"},
    Callee{u"RIGHT", u"CN"},  Callee{u"SUBSTR", u"CNn"},    Callee{u"STUFF", u"CNNC"},
    Callee{u"SPACE", u"N"},   Callee{u"REPLICATE", u"CN"},  Callee{u"PADL", u"XNc"},
    Callee{u"PADR", u"XNc"},  Callee{u"PADC", u"XNc"},      Callee{u"CHR", u"N"},
    Callee{u"STR", u"Nnn"},   Callee{u"STR", u"Nnn"},       Callee{u"STRZERO", u"Nnn"},
    Callee{u"NTOS", u"N"},    Callee{u"STRTRAN", u"CCcnn"}, Callee{u"CHRTRAN", u"CCC"},
    Callee{u"VALTYPE", u"X"}, Callee{u"VARTYPE", u"X"},     Callee{u"CVALTOCHAR", u"X"},
    Callee{u"MAX", u"CC"},    Callee{u"PROPER", u"C"},      Callee{u"TRANSFORM", u"Xc"},
    Callee{u"DTOS", u"N"},
};
constexpr std::array kLogicalFunctions = {
    Callee{u"EMPTY", u"X"},     Callee{u"ISNULL", u"X"},    Callee{u"BETWEEN", u"NNN"},
    Callee{u"BETWEEN", u"CCC"}, Callee{u"INLIST", u"CCcc"}, Callee{u"INLIST", u"NNnn"},
    Callee{u"ISALPHA", u"C"},   Callee{u"ISDIGIT", u"C"},   Callee{u"ISUPPER", u"C"},
    Callee{u"ISLOWER", u"C"},   Callee{u"LIKE", u"CC"},
};
constexpr std::array kAnyFunctions = {Callee{u"NVL", u"XX"}, Callee{u"EVL", u"XX"},
                                      Callee{u"IIF", u"LXX"}, Callee{u"IF", u"LX"},
                                      Callee{u"ICASE", u"LXLXX"}};

std::array<KxJsTranslator, 3> makeTranslators() {
    KxJsTranslator::Options exact;
    exact.exact = true;
    KxJsTranslator::Options own = exact;
    own.dateFormat = u"DD.MM.YYYY";
    return {KxJsTranslator(), KxJsTranslator(exact), KxJsTranslator(own)};
}

}  // namespace

TranslatedGenerator::TranslatedGenerator(Choices random)
    : random_(std::move(random)), translators_(makeTranslators()) {}

std::u16string TranslatedGenerator::translation() {
    formula_ = expression(static_cast<Kind>(random_() % 3), static_cast<int>(random_() % 4));
    return translators_[random_() % translators_.size()].translate(formula_).javaScript;
}

std::u16string TranslatedGenerator::leaf(Kind kind) {
    switch (kind) {
        case Kind::number:
            return pick(kNumbers);
        case Kind::text:
            return pick(kTexts);
        default:
            return pick(kLogicals);
    }
}

std::u16string TranslatedGenerator::call(Kind kind, int depth) {
    Callee function = kAnyFunctions[random_() % kAnyFunctions.size()];
    if (random_() % 6 != 0) {
        function = kind == Kind::number ? kNumberFunctions[random_() % kNumberFunctions.size()]
                   : kind == Kind::text ? kTextFunctions[random_() % kTextFunctions.size()]
                                        : kLogicalFunctions[random_() % kLogicalFunctions.size()];
    }
    std::u16string text(function.name);
    text += u'(';
    for (std::size_t i = 0; i < function.arguments.size(); ++i) {
        char16_t const letter = function.arguments[i];
        if (letter >= u'a' && random_() % 2 == 0) break;
        if (i > 0) text += u',';
        auto const asked = letter == u'N' || letter == u'n'   ? Kind::number
                           : letter == u'C' || letter == u'c' ? Kind::text
                           : letter == u'L'                   ? Kind::logical
                                                              : kind;
        text += random_() % 40 == 0 ? u"NIL" : expression(asked, depth - 1);
    }
    return text + u')';
}

std::u16string TranslatedGenerator::expression(Kind kind, int depth) {
    // Now and then another kind.
    if (random_() % 30 == 0) kind = static_cast<Kind>(random_() % 3);
    if (depth <= 0) return leaf(kind);
    if (random_() % 2 == 0) return call(kind, depth);
    auto const joined = [&](Kind of, auto const& signs) {
        std::u16string text = u"(" + expression(of, depth - 1) + pick(signs);
        return text + expression(of, depth - 1) + u")";
    };
    switch (kind) {
        case Kind::number:
            return random_() % 8 == 0 ? u"(-" + expression(kind, depth - 1) + u")"
                                      : joined(kind, kNumberOperators);
        case Kind::text:
            return joined(kind, std::array{u"+"sv, u"+"sv, u"-"sv});
        default:
            break;
    }
    switch (random_() % 5) {
        case 0:
            return joined(Kind::number, kComparisons);
        case 1:
            return joined(Kind::text, kComparisons);
        case 2:
            return joined(Kind::text, std::array{u"$"sv});
        case 3:
            return u"(NOT " + expression(kind, depth - 1) + u")";
        default:
            return joined(kind, kLogicalOperators);
    }
}
