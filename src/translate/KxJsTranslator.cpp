#include "translate/KxJsTranslator.h"

#include <algorithm>
#include <stdexcept>
#include <unordered_set>

#include "translate/Emitter.h"
#include "translate/Functions.h"
#include "translate/Letters.h"
#include "translate/Parser.h"
#include "translate/RunTimePart.h"
#include "translate/Settings.h"
#include "translate/check/Check.h"

namespace translate = kx::translate;

namespace {

constexpr std::u16string_view kStandardFormat = u"YYYY-MM-DD";
constexpr int kStandardEpoch = 1900;

std::u16string upperCaseOf(std::u16string_view text) {
    std::u16string upper;
    for (char16_t const unit : text) upper += translate::upperCase(unit);
    return upper;
}

std::u16string quoted(std::u16string_view text) {
    std::u16string js = u"\"";
    for (char16_t const unit : text) {
        if (unit == u'"' || unit == u'\\') js += u'\\';
        js += unit;
    }
    return js += u'"';
}

bool hasOnce(std::u16string_view format, char16_t letter, std::size_t count) {
    std::size_t const first = format.find(letter);
    if (first == std::u16string_view::npos) return false;
    return static_cast<std::size_t>(std::count(format.begin(), format.end(), letter)) == count &&
           format.rfind(letter) == first + count - 1;
}

bool isDateFormat(std::u16string_view format) {
    bool const isPrintable =
        std::none_of(format.begin(), format.end(), [](char16_t unit) { return unit < u' '; });
    return isPrintable && (hasOnce(format, u'Y', 4) || hasOnce(format, u'Y', 2)) &&
           hasOnce(format, u'M', 2) && hasOnce(format, u'D', 2);
}

/// How formulas reach the run-time part that has these settings.
std::u16string runTimeName(KxJsTranslator::Options const& options) {
    if (options.dateFormat == kStandardFormat && options.epoch == kStandardEpoch) {
        return options.exact ? u"kx.exact" : u"kx";
    }
    std::string const epoch = std::to_string(options.epoch);
    std::u16string name = options.exact ? u"kx.of(true," : u"kx.of(false,";
    name.append(quoted(options.dateFormat)).append(u",");
    name.append(epoch.begin(), epoch.end()).append(u")");
    return name;
}

translate::Settings settingsOf(KxJsTranslator::Options const& options) {
    if (!isDateFormat(options.dateFormat)) {
        throw std::invalid_argument("a date format needs YYYY or YY, MM and DD");
    }
    translate::Settings settings;
    settings.isExact = options.exact;
    settings.isStrict = options.strict;
    for (KxJsTranslator::Variable const& variable : options.variables) {
        settings.variables[upperCaseOf(variable.key)] = {
            variable.key, static_cast<translate::Kind>(variable.kind)};
    }
    for (std::u16string const& function : options.functions) {
        settings.functions[upperCaseOf(function)] = function;
    }
    settings.runTime = runTimeName(options);
    settings.hasOwnDateFormat = options.dateFormat != kStandardFormat;
    return settings;
}

KxJsTranslator::Finding findingOf(std::u16string_view code, translate::Place place,
                                  std::u16string text) {
    return {std::u16string(code), place.start, place.end - place.start, std::move(text)};
}

std::vector<std::u16string> variablesOf(translate::Tree const& tree,
                                        translate::Settings const& settings) {
    std::vector<std::u16string> names;
    std::unordered_set<std::u16string_view> seen;
    for (translate::Node const& node : tree.nodes) {
        if (node.kind != translate::NodeKind::name) continue;
        std::u16string_view const key = translate::variableKey(tree, node, settings);
        if (seen.insert(key).second) names.emplace_back(key);
    }
    return names;
}

}  // namespace

struct KxJsTranslator::Data {
    translate::Settings settings;
};

KxJsTranslator::KxJsTranslator() : KxJsTranslator(Options()) {}
KxJsTranslator::KxJsTranslator(Options const& options)
    : data_(std::make_shared<Data const>(Data{settingsOf(options)})) {}
KxJsTranslator::KxJsTranslator(KxJsTranslator const&) = default;
KxJsTranslator::KxJsTranslator(KxJsTranslator&&) noexcept = default;
KxJsTranslator& KxJsTranslator::operator=(KxJsTranslator const&) = default;
KxJsTranslator& KxJsTranslator::operator=(KxJsTranslator&&) noexcept = default;
KxJsTranslator::~KxJsTranslator() = default;

KxJsTranslator::Translation KxJsTranslator::translate(std::u16string_view formula) const {
    translate::Tree tree;
    std::vector<translate::Untranslatable> obstacles;
    translate::Parser parser(formula, data_->settings, tree, obstacles);
    Translation translation;
    if (auto error = parser.parse()) {
        translation.findings.push_back(findingOf(u"SYNTAX", error->place, std::move(error->text)));
        return translation;
    }
    std::stable_sort(obstacles.begin(), obstacles.end(),
                     [](translate::Untranslatable const& a, translate::Untranslatable const& b) {
                         return a.place.start < b.place.start;
                     });
    for (translate::Untranslatable& obstacle : obstacles) {
        translation.findings.push_back(
            findingOf(obstacle.code, obstacle.place, std::move(obstacle.text)));
    }
    translation.variables = variablesOf(tree, data_->settings);
    if (translation.findings.empty()) {
        translation.javaScript = translate::emit(tree, formula, data_->settings);
    }
    return translation;
}

KxJsTranslator::Check KxJsTranslator::check(std::u16string_view formula) const {
    translate::CheckResult result = translate::check(formula, data_->settings);
    Check check;
    check.verdict = static_cast<Verdict>(result.verdict);
    check.javaScript = std::move(result.javaScript);
    check.rewrite = std::move(result.rewriting);
    for (translate::CheckFinding& finding : result.findings) {
        Damage damage;
        damage.code = finding.code;
        damage.position = finding.place.start;
        damage.length = finding.place.end - finding.place.start;
        damage.text = std::move(finding.text);
        damage.javaScript = std::move(finding.written);
        damage.rewrite = std::move(finding.rewriting);
        damage.rewritePosition = finding.rewritten.start;
        damage.rewriteLength = finding.rewritten.end - finding.rewritten.start;
        check.damages.push_back(std::move(damage));
    }
    return check;
}

std::u16string const& KxJsTranslator::runTimePart() { return translate::runTimePart(); }

std::vector<KxJsFunction> KxJsTranslator::functions() {
    std::vector<KxJsFunction> records;
    for (translate::LanguageFunction const* const function : translate::languageFunctions()) {
        records.push_back(kx::buildRecord(u"functions of the translated language", function->row));
    }
    return records;
}
