// Verdicts and rewritings of the check, held against what both forms give when they run with random
// values. KXJS_DIFFERENTIAL_ROUNDS asks for another number of formulas than the usual one.
#include <array>
#include <cctype>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "convert/Converter.h"
#include "host/KxJsParser.h"
#include "support/Utf8.h"
#include "translate/KxJsTranslator.h"

namespace {

using Verdict = KxJsTranslator::Verdict;

/// Formulas in which kinds fit, of names A B N (numbers), S T (texts), L M (logical values).
/// Literals that the conversion damages stand only where the damage shows in the result: not below
/// functions and comparisons, which may give the same for both. For the same reason what is
/// compared or chosen from is never twice the same, and conditions and dividends have a variable.
class FormulaGenerator {
  public:
    explicit FormulaGenerator(std::uint32_t seed) : random_(seed) {}

    std::string formula() {
        switch (below(3)) {
            case 0:
                return number(3);
            case 1:
                return text(3);
            default:
                return logical(3);
        }
    }

  private:
    std::size_t below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
    }
    std::string oneOf(std::initializer_list<char const*> texts) {
        return *(texts.begin() + below(texts.size()));
    }

    /// While it lives, damage may not show.
    struct Hiding {
        explicit Hiding(int& count) : count(count) { ++count; }
        ~Hiding() { --count; }
        Hiding(Hiding const&) = delete;
        Hiding& operator=(Hiding const&) = delete;
        int& count;
    };

    /// Whether a name of one letter stands outside of quotes.
    static bool isVariable(std::string const& text) {
        char quote = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (quote != 0 || text[i] == '\'' || text[i] == '"') {
                if (quote == 0) {
                    quote = text[i];
                } else if (text[i] == quote) {
                    quote = 0;
                }
                continue;
            }
            bool const isAlone = (i == 0 || std::isalnum(text[i - 1]) == 0) &&
                                 (i + 1 == text.size() || std::isalnum(text[i + 1]) == 0);
            bool const isWord =
                i > 0 && text[i - 1] == '.' && i + 1 < text.size() && text[i + 1] == '.';
            if (isAlone && !isWord && std::isupper(text[i]) != 0) return true;
        }
        return false;
    }

    /// Something that depends on a variable, where chance finds it.
    template <class Generate>
    std::string variable(Generate const& generate) {
        std::string made = generate();
        for (int i = 0; i < 50 && !isVariable(made); ++i) made = generate();
        return made;
    }

    /// Something else than `text`.
    template <class Generate>
    std::string otherThan(std::string const& text, Generate const& generate) {
        std::string made = generate();
        for (int i = 0; i < 50 && made == text; ++i) made = generate();
        return made;
    }

    template <class Generate>
    std::string choice(char const* call, int depth, Generate const& arm) {
        std::string const condition = variable([&] { return logical(depth); });
        std::string const first = arm();
        return call + condition + "," + first + "," + otherThan(first, arm) + ")";
    }

    template <class Generate>
    std::string comparison(std::initializer_list<char const*> signs, Generate const& operand) {
        std::string const left = variable(operand);
        return left + oneOf(signs) + otherThan(left, operand);
    }

    std::string number(int depth) {
        if (depth == 0 || below(4) == 0) {
            if (hiding_ == 0 && below(12) == 0) return "010";
            return oneOf({"A", "B", "N", "1", "2", "7", "1.5", "A", "B"});
        }
        auto const n = [&] { return number(depth - 1); };
        std::size_t const which = below(14);
        bool const isPlain = which < 5 || which == 11;
        std::optional<Hiding> hiding;
        if (!isPlain) hiding.emplace(hiding_);
        switch (which) {
            case 0:
            case 1:
                return n() + oneOf({"+", " + ", "-", " - "}) + n();
            case 2:
                return n() + oneOf({"*", " * "}) + n();
            case 3:
                return "(" + n() + ")";
            case 4:
                return "-" + oneOf({"A", "(B)", "2"});
            case 5:
                return oneOf({"INT", "ABS", "FLOOR", "CEILING"}) + "(" + n() + ")";
            case 6:
                return "ROUND(" + n() + "," + oneOf({"0", "1", "2"}) + ")";
            case 7:
                return oneOf({"MAX", "MIN"}) + "(" + n() + "," + n() + ")";
            case 8:
                return "MOD(" + variable(n) + "," + oneOf({"3", "7"}) + ")";
            case 9:
                return "LEN(" + text(depth - 1) + ")";
            case 10:
                return oneOf({"AT", "RAT", "OCCURS"}) + "(" + oneOf({"'l'", "'L'"}) + "," +
                       text(depth - 1) + ")";
            case 11:
                return choice(oneOf({"IIF(", "IF("}).c_str(), depth - 1, n);
            case 12:
                return oneOf({"A", "B", "N"}) + oneOf({"^", "**"}) + oneOf({"2", "3"});
            default:
                return "VAL(" + oneOf({"'12'", "' -01.5x'", "'x'", "S"}) + ")";
        }
    }

    std::string text(int depth) {
        if (depth == 0 || below(4) == 0) {
            if (hiding_ == 0 && below(2) == 0) {
                return oneOf({"'a  b'", "'C:\\t'", "' AND '", "'TRUE'", "[x]"});
            }
            return oneOf({"S", "T", "'he'", "\"HELLO\"", "''", "\"it's\"", "S", "T"});
        }
        auto const t = [&] { return text(depth - 1); };
        std::size_t const which = below(12);
        bool const isShown = hiding_ == 0;
        std::optional<Hiding> hiding;
        if (which > 2 && which != 5) hiding.emplace(hiding_);
        switch (which) {
            case 0:
            case 1:
                return t() + oneOf({"+", " + "}) + t();
            case 2:
                return oneOf({"UPPER", "LOWER", "ALLTRIM", "TRIM", "LTRIM", "ALLT"}) + "(" + t() +
                       ")";
            case 3:
                return oneOf({"LEFT", "RIGHT"}) + "(" + t() + "," + oneOf({"1", "2"}) + ")";
            case 4:
                return "SUBSTR(" + t() + "," + oneOf({"1", "2", "A"}) + "," + oneOf({"1", "2"}) +
                       ")";
            case 5:
                return choice("IIF(", depth - 1, t);
            case 6:
                return oneOf({"PADR", "PADL", "PADC"}) + "(" + t() + "," + oneOf({"1", "6"}) +
                       oneOf({"", "", ",'.'"}) + ")";
            case 7:
                return "SPACE(" + oneOf({"0", "2", "LEN(S)"}) + ")";
            case 8:
                return oneOf({"STR", "STRZERO"}) + "(" +
                       oneOf({"2.565", "-2.5", "100000", "0.045", "LEN(S)", "A"}) +
                       oneOf({"", ",5", ",12", ",7,2"}) + ")";
            case 9:
                return oneOf({"NTOS(2.50)", "NTOS(LEN(S))", "PADL(LEN(S),3)", "PADC(AT('l',S),4)"});
            case 10:
                // Texts that are subtracted give NaN, which may be as good as another text.
                if (!isShown) return oneOf({"'x'", "TRIM(S)", "S"}) + "+" + t();
                return oneOf({"'he  '", "'x'", "TRIM(S)", "S"}) + oneOf({"-", " - "}) + t();
            default:
                return "STUFF(" + t() + ",1,2,'x')";
        }
    }

    std::string logical(int depth) {
        if (depth == 0 || below(6) == 0) return oneOf({"L", "M", "L", "M", "L", ".T."});
        Hiding const hiding(hiding_);
        auto const l = [&] { return logical(depth - 1); };
        switch (below(9)) {
            case 0:
            case 1:
                return comparison({"=", "==", "<>", "#", "<", ">", "<=", ">=", " = "},
                                  [&] { return number(depth - 1); });
            case 2:
                return comparison({"=", "==", "<>", "<", ">", "<=", ">=", "$"},
                                  [&] { return text(depth - 1); });
            case 3:
            case 4:
                return comparison({" .AND. ", " .OR. ", ".AND.", " AND ", " OR "}, l);
            case 5:
                return oneOf({".NOT. ", "!", "! ", "NOT "}) + l();
            case 6:
                return "(" + l() + ")";
            case 7:
                return oneOf({"EMPTY(S)", "EMPTY(A)", "BETWEEN(A,1,5)", "INLIST(A,1,2)",
                              "INLIST(S,'he','x')", "ISUPPER(S)"});
            default:
                return comparison({" XOR ", "==", "<>"}, [&] { return oneOf({"L", "M"}); });
        }
    }

    std::mt19937 random_;
    int hiding_ = 0;
};

/// Binds the generator's variables to random values and runs both forms.
class Hosts {
  public:
    Hosts() {
        host_.initialize();
        std::u16string error;
        host_.evaluate(KxJsTranslator::runTimePart(), error);
    }

    void bind(std::uint32_t seed) {
        std::mt19937 random(seed);
        constexpr std::array<char16_t const*, 8> kTexts{u"hello", u"he", u"HELLO", u"x",
                                                        u"",      u"12", u"he lo", u"World"};
        constexpr std::array<double, 9> kNumbers{5, 2, -7, 0, 1, 1.5, -2.25, 10, 3};
        auto const below = [&random](std::size_t limit) {
            return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
        };
        for (char16_t const* key : {u"A", u"B", u"N"}) {
            host_.addSetVariable(KxJsVariable(key, kNumbers[below(kNumbers.size())]));
        }
        for (char16_t const* key : {u"S", u"T"}) {
            host_.addSetVariable(KxJsVariable(key, kTexts[below(kTexts.size())]));
        }
        for (char16_t const* key : {u"L", u"M"}) {
            host_.addSetVariable(KxJsVariable(key, below(2) == 1));
        }
    }

    /// The result, or "error".
    std::string run(std::u16string const& javaScript) {
        std::u16string error;
        std::u16string const result = host_.evaluate(javaScript, error);
        if (host_.lastFailure() != nullptr) return "error";
        // -0 and 0 are told apart by no formula.
        return result.empty() ? "(empty)" : kx::test::toUtf8(result);
    }

  private:
    KxJsParser host_;
};

KxJsTranslator makeTranslator(bool isExact) {
    using Kind = KxJsTranslator::Kind;
    KxJsTranslator::Options options;
    options.variables = {{u"A", Kind::NUMBER}, {u"B", Kind::NUMBER}, {u"N", Kind::NUMBER},
                         {u"S", Kind::TEXT},   {u"T", Kind::TEXT},   {u"L", Kind::LOGICAL},
                         {u"M", Kind::LOGICAL}};
    options.exact = isExact;
    return KxJsTranslator(options);
}

std::uint32_t rounds() {
    char const* const asked = std::getenv("KXJS_DIFFERENTIAL_ROUNDS");
    constexpr std::uint32_t kUsual = 1500;
    return asked == nullptr ? kUsual : static_cast<std::uint32_t>(std::atoi(asked));
}

class Differential : public testing::TestWithParam<bool> {};

TEST_P(Differential, VerdictsAndRewritingsAgreeWithRuns) {
    constexpr std::uint32_t kBindings = 12;
    KxJsTranslator const translator = makeTranslator(GetParam());
    Hosts hosts;
    std::map<Verdict, std::size_t> verdicts;
    std::size_t sameValues = 0;
    std::size_t changedFormulas = 0;
    std::size_t rewrittenValues = 0;
    std::string wrongSame;
    std::string wrongChanged;
    std::string wrongRewritten;
    std::size_t wrongSameCount = 0;
    std::size_t wrongChangedCount = 0;
    std::size_t wrongRewrittenCount = 0;
    for (std::uint32_t seed = 0; seed < rounds(); ++seed) {
        std::string const formula = FormulaGenerator(seed).formula();
        std::u16string const source = kx::test::toUtf16(formula);
        auto const check = translator.check(source);
        auto const translation = translator.translate(source);
        ASSERT_TRUE(translation.findings.empty()) << formula;
        ++verdicts[check.verdict];
        bool isEverOther = false;
        bool hasRun = false;
        for (std::uint32_t binding = 0; binding < kBindings; ++binding) {
            hosts.bind(seed * kBindings + binding);
            std::string const meant = hosts.run(translation.javaScript);
            if (meant == "error") continue;
            hasRun = true;
            std::string const converted = hosts.run(check.javaScript);
            hosts.bind(seed * kBindings + binding);
            bool const isEqual = converted == meant;
            isEverOther = isEverOther || !isEqual;
            if (check.verdict == Verdict::SAME) {
                ++sameValues;
                if (!isEqual) {
                    ++wrongSameCount;
                    wrongSame.append(formula).append(": ").append(meant);
                    wrongSame.append(", not ").append(converted).append("\n");
                }
            }
            if (!check.rewrite.empty()) {
                std::u16string const rewritten = Converter::_convert(check.rewrite.c_str());
                std::string const result = hosts.run(rewritten);
                hosts.bind(seed * kBindings + binding);
                ++rewrittenValues;
                if (result != meant) {
                    ++wrongRewrittenCount;
                    wrongRewritten.append(formula).append(" => ");
                    wrongRewritten.append(kx::test::toUtf8(check.rewrite)).append(": ");
                    wrongRewritten.append(meant).append(", not ").append(result).append("\n");
                }
            }
        }
        // Values that tell the two apart may be rare.
        constexpr std::uint32_t kMostBindings = 400;
        for (std::uint32_t binding = 0;
             check.verdict == Verdict::CHANGED && hasRun && !isEverOther && binding < kMostBindings;
             ++binding) {
            hosts.bind(binding);
            std::string const meant = hosts.run(translation.javaScript);
            isEverOther = meant != "error" && hosts.run(check.javaScript) != meant;
        }
        if (check.verdict == Verdict::CHANGED && hasRun) {
            ++changedFormulas;
            if (!isEverOther) {
                ++wrongChangedCount;
                wrongChanged += formula + " => " + kx::test::toUtf8(check.javaScript) + '\n';
            }
        }
    }
    for (auto const& [verdict, count] : verdicts) {
        RecordProperty("verdict_" + std::to_string(static_cast<int>(verdict)),
                       static_cast<int>(count));
    }
    EXPECT_GT(sameValues, rounds() / 5);
    EXPECT_GT(changedFormulas, rounds() / 20);
    EXPECT_GT(rewrittenValues, rounds() / 5);
    EXPECT_LE(wrongSameCount * 100, sameValues) << wrongSame;
    // The generator makes a few formulas whose two meanings give the same for all values.
    EXPECT_LE(wrongChangedCount * 100, changedFormulas) << wrongChanged;
    EXPECT_EQ(wrongRewrittenCount, 0U) << wrongRewritten;
    std::printf(
        "%zu of %zu values, %zu of %zu changed formulas, %zu of %zu rewritten values differ\n",
        wrongSameCount, sameValues, wrongChangedCount, changedFormulas, wrongRewrittenCount,
        rewrittenValues);
}

INSTANTIATE_TEST_SUITE_P(Exact, Differential, testing::Bool(),
                         [](auto const& test) { return test.param ? "On" : "Off"; });

}  // namespace
