#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "library/Export.h"
#include "library/KxJsFunction.h"

/// Translates formulas of the older upper-case language into JavaScript that means the same.
///
///     KxJsParser host;
///     host.initialize();
///     host.addSetVariable(KxJsVariable(u"Name", u"Smith"));
///     std::u16string error;
///     host.evaluate(KxJsTranslator::runTimePart(), error);  // once for each host
///
///     KxJsTranslator::Options options;
///     options.variables = {{u"Name"}};
///     KxJsTranslator const translator(options);
///     auto const translation = translator.translate(u"IIF(NAME='S', PADL(7,3,'0'), '')");
///     if (translation.findings.empty()) {
///         host.evaluate(translation.javaScript, error);  // "007"
///     }
///
/// Converter rewrites text by fixed rules, which formulas in use depend on, the odd results
/// included. This class reads the language by its grammar instead: "=" compares, "$" looks for a
/// text, positions count from 1, kinds that do not fit are errors. docs/translation.md describes
/// the language and how to move from one to the other.
///
/// The functions of the language and its operators are members of one object, the global `kx`,
/// which is not enumerable. Only a host that ran runTimePart() has it. Translations fail elsewhere.
///
/// Texts and places are in UTF-16 code units. Cost grows linearly with the formula, for any text.
/// Errors: std::bad_alloc; what is wrong with a formula is a finding.
/// Threads: a translator never changes once made; any number of threads may use it at once.
class KXJS_API KxJsTranslator {
  public:
    /// The kind of a variable's values.
    enum class Kind : unsigned char { UNKNOWN, TEXT, NUMBER, LOGICAL };

    /// A variable that the application binds.
    struct Variable {
        std::u16string key;         ///< as it is bound, in its own case
        Kind kind = Kind::UNKNOWN;  ///< a promise: translations leave out what cannot happen
    };

    /// How to translate.
    struct Options {
        /// Names in formulas mean these, whatever their case; others are taken in upper case.
        /// `A->B` and `A.B` are the variable `A$B`.
        std::vector<Variable> variables;
        /// Functions that the application has defined itself; calls of others are findings.
        std::vector<std::u16string> functions;
        /// Texts are compared in full, but for trailing blanks. Otherwise, as long as the text on
        /// the right goes on: 'ABC' = 'AB' is true.
        bool exact = false;
        /// Names that are not among `variables` are findings.
        bool strict = false;
        /// How dates are written and read: YYYY or YY, MM and DD, in any order, with any
        /// separators.
        std::u16string dateFormat = u"YYYY-MM-DD";
        /// Years of two digits lie in the hundred years from this one on.
        int epoch = 1900;
    };

    /// Something that stands against a translation.
    struct Finding {
        std::u16string code;  ///< "SYNTAX", or a name such as "MACRO"; docs/translation.md has all
        std::size_t position = 0;  ///< from the formula's start, in UTF-16 code units
        std::size_t length = 0;    ///< in UTF-16 code units
        std::u16string text;       ///< what is wrong, or was expected; in English
    };

    /// A formula's translation.
    struct Translation {
        std::u16string javaScript;      ///< one expression; empty where there are findings
        std::vector<Finding> findings;  ///< one of the code "SYNTAX", or all others in order
        /// The variables of the formula, as the JavaScript has them, in order, each once.
        std::vector<std::u16string> variables;
    };

    /// What the exact conversion, Converter, does to a formula; from best to worst.
    enum class Verdict : unsigned char {
        SAME,          ///< keeps its meaning
        DIFFERS,       ///< keeps its shape, but a function or a comparison of texts means another
        UNKNOWN,       ///< keeps its shape, but fails when it runs: something is not defined
        CHANGED,       ///< compiles to something else
        FAILS,         ///< does not compile
        NOT_A_FORMULA  ///< is none of the older language
    };

    /// One thing that the exact conversion does to a formula, or may do.
    struct Damage {
        std::u16string code;       ///< a name such as "EQUALS_ASSIGNS"; docs/translation.md has all
        std::size_t position = 0;  ///< from the formula's start, in UTF-16 code units
        std::size_t length = 0;    ///< in UTF-16 code units
        std::u16string text;       ///< what happens, and what was meant; in English
        std::u16string javaScript;  ///< what the conversion makes of the part
        /// What to write instead of the formula's part from `rewritePosition` on, so that the
        /// conversion keeps the meaning; empty where nothing is known to.
        std::u16string rewrite;
        std::size_t rewritePosition = 0;  ///< from the formula's start, in UTF-16 code units
        std::size_t rewriteLength = 0;    ///< in UTF-16 code units
    };

    /// What check() found.
    struct Check {
        Verdict verdict = Verdict::SAME;  ///< the worst that was found
        std::u16string javaScript;        ///< as Converter gives it
        std::vector<Damage> damages;      ///< in order; one of the code "SYNTAX" for no formula
        /// The whole formula as it may be written for the exact conversion; empty where nothing is
        /// known to keep its meaning, and where it is good as it is.
        std::u16string rewrite;
    };

    /// A translator with the options' defaults.
    KxJsTranslator();
    /// Throws std::invalid_argument for a date format without year, month and day, each once.
    explicit KxJsTranslator(Options const& options);
    /// Copies share what they need; a translator that was moved from may be assigned and ended.
    /// @{
    KxJsTranslator(KxJsTranslator const&);
    KxJsTranslator(KxJsTranslator&&) noexcept;
    KxJsTranslator& operator=(KxJsTranslator const&);
    KxJsTranslator& operator=(KxJsTranslator&&) noexcept;
    /// @}
    ~KxJsTranslator();

    /// The JavaScript of `formula`, or why there is none: it is no formula, or contains what is
    /// evaluated, assigned or addressed at run time only.
    Translation translate(std::u16string_view formula) const;

    /// Whether the exact conversion keeps what `formula` means. The tree of the formula is compared
    /// with that of the converted JavaScript; nothing runs. Rewritings are converted and compared
    /// the same way before they are told. Kinds of variables allow it to judge more comparisons.
    ///
    ///     auto const check = translator.check(u"IIF(B=2,'x','y')");
    ///     // check.verdict: CHANGED; check.rewrite: IIF(B==2,'x','y')
    Check check(std::u16string_view formula) const;

    /// The script that makes translations run in a context, for KxJsParser::evaluate(). A host
    /// needs it once, before or after variables are bound; reset() keeps what it defines. Running
    /// it again does no harm. The text lives as long as the process.
    static std::u16string const& runTimePart();

    /// Records of the language's functions, with names, texts and examples for documentation, in
    /// a new list that the caller owns. Their bodies are parts of the run-time part, and mean
    /// nothing elsewhere.
    static std::vector<KxJsFunction> functions();

  private:
    struct Data;
    std::shared_ptr<Data const> data_;
};
