#include <cstdint>
#include <string>
#include <vector>

#include "Objects.h"

namespace {

using kx::test::evaluated;
using kx::test::Findings;
using kx::test::Host;
using kx::test::itemsOf;
using kx::test::Text;
using kx::test::TextList;
using kx::test::Translator;
using kx::test::Units;

std::size_t countOf(kxjs_findings* findings) {
    std::size_t count = 77;
    EXPECT_EQ(kxjs_findings_count(findings, &count), KXJS_OK);
    return count;
}

TEST(CConversion, RewritesByTheRules) {
    Text const javaScript;
    Units const wide(u"2^3");
    ASSERT_EQ(kxjs_convert(KXJS_LITERAL("IIF(A>2 .AND. B<>0, 'OK', 'KO')"), javaScript), KXJS_OK);
    EXPECT_EQ(javaScript.str(), " IIF(A>2 && B!=0, 'OK', 'KO')");
    ASSERT_EQ(kxjs_convert_utf16(wide.data(), wide.size(), javaScript), KXJS_OK);
    EXPECT_EQ(javaScript.str(), " Math.pow(2,3) ");
    ASSERT_EQ(kxjs_convert(KXJS_LITERAL("A\0B"), javaScript), KXJS_OK);
    EXPECT_EQ(javaScript.str(), "A");
}

TEST(CTranslator, TranslatesWhatHostsRun) {
    Host const host;
    Translator const translator;
    Text const text;
    Findings const findings;
    TextList const variables;
    ASSERT_EQ(kxjs_host_initialize(host), KXJS_OK);
    ASSERT_EQ(kxjs_run_time_part(text), KXJS_OK);
    std::string const runTimePart = text.str();
    EXPECT_NE(runTimePart, "");
    evaluated(host, runTimePart);
    ASSERT_EQ(kxjs_host_set_text(host, KXJS_LITERAL("Name"), KXJS_LITERAL("Smith")), KXJS_OK);
    ASSERT_EQ(kxjs_translator_add_variable(translator, KXJS_LITERAL("Name"), KXJS_KIND_UNKNOWN),
              KXJS_OK);
    ASSERT_EQ(
        kxjs_translator_translate(translator, KXJS_LITERAL("IIF(NAME='S', PADL(7,3,'0'), '')"),
                                  text, findings, variables),
        KXJS_OK);
    EXPECT_EQ(countOf(findings), 0U);
    EXPECT_EQ(itemsOf(variables), std::vector<std::string>{"Name"});
    EXPECT_EQ(evaluated(host, text.str()), "007");
}

TEST(CTranslator, SaysWhatStandsAgainstATranslation) {
    Translator const translator;
    Findings const findings;
    Text const text;
    Text const code;
    Text const reason;
    kxjs_finding finding{};
    finding.struct_size = sizeof finding;
    Units const formula(u"1+OTHER(2)");
    auto const translate = [&] {
        return kxjs_translator_translate_utf16(translator, formula.data(), formula.size(), text,
                                               findings, nullptr);
    };
    EXPECT_EQ(translate(), KXJS_FORMULA_FAILED);
    EXPECT_EQ(text.str(), "");
    ASSERT_EQ(countOf(findings), 1U);
    ASSERT_EQ(kxjs_findings_get(findings, 0, &finding, code, reason, text, text), KXJS_OK);
    EXPECT_EQ(finding.position, 2U);
    EXPECT_EQ(finding.length, 5U);
    EXPECT_EQ(code.str(), "FUNCTION_UNKNOWN");
    EXPECT_NE(reason.str(), "");
    EXPECT_EQ(kxjs_findings_get(findings, 1, &finding, code, reason, text, text), KXJS_NOT_FOUND);
    ASSERT_EQ(kxjs_translator_add_function(translator, KXJS_LITERAL("OTHER")), KXJS_OK);
    EXPECT_EQ(translate(), KXJS_OK);
    EXPECT_EQ(countOf(findings), 0U);
}

TEST(CTranslator, HasTheSettingsOfTheClass) {
    Translator const translator;
    Text const first;
    Text const second;
    Units const key(u"Preis");
    Units const function(u"OTHER");
    Units const format(u"DD.MM.YY");
    auto const translated = [&](Text const& text, char const* formula, std::size_t length) {
        return kxjs_translator_translate(translator, formula, length, text, nullptr, nullptr);
    };
    ASSERT_EQ(translated(first, KXJS_LITERAL("A='x'")), KXJS_OK);
    ASSERT_EQ(kxjs_translator_set_exact(translator, 1), KXJS_OK);
    ASSERT_EQ(translated(second, KXJS_LITERAL("A='x'")), KXJS_OK);
    EXPECT_NE(first.str(), second.str());

    ASSERT_EQ(translated(first, KXJS_LITERAL("CTOD(A)")), KXJS_OK);
    EXPECT_EQ(kxjs_translator_set_date_format(translator, KXJS_LITERAL("YYYY")), KXJS_REFUSED);
    ASSERT_EQ(kxjs_translator_set_date_format(translator, KXJS_LITERAL("MM/DD/YYYY")), KXJS_OK);
    ASSERT_EQ(translated(second, KXJS_LITERAL("CTOD(A)")), KXJS_OK);
    EXPECT_NE(first.str(), second.str());
    ASSERT_EQ(kxjs_translator_set_date_format_utf16(translator, format.data(), format.size()),
              KXJS_OK);
    ASSERT_EQ(translated(first, KXJS_LITERAL("CTOD(A)")), KXJS_OK);
    EXPECT_NE(first.str(), second.str());
    ASSERT_EQ(kxjs_translator_set_epoch(translator, 1950), KXJS_OK);
    ASSERT_EQ(translated(second, KXJS_LITERAL("CTOD(A)")), KXJS_OK);
    EXPECT_NE(first.str(), second.str());

    ASSERT_EQ(kxjs_translator_set_strict(translator, 1), KXJS_OK);
    EXPECT_EQ(translated(first, KXJS_LITERAL("PREIS+1")), KXJS_FORMULA_FAILED);
    ASSERT_EQ(
        kxjs_translator_add_variable_utf16(translator, key.data(), key.size(), KXJS_KIND_NUMBER),
        KXJS_OK);
    ASSERT_EQ(kxjs_translator_add_function_utf16(translator, function.data(), function.size()),
              KXJS_OK);
    EXPECT_EQ(translated(first, KXJS_LITERAL("OTHER(PREIS)+1")), KXJS_OK);
    for (std::int32_t const kind : {-1, 4}) {
        EXPECT_EQ(kxjs_translator_add_variable(translator, "A", 1, kind), KXJS_BAD_ARGUMENT);
    }
}

TEST(CTranslator, ChecksTheConversion) {
    Translator const translator;
    Findings const findings;
    Text const javaScript;
    Text const rewrite;
    Text const code;
    std::int32_t verdict = -1;
    ASSERT_EQ(kxjs_translator_check(translator, KXJS_LITERAL("IIF(B=2,'x','y')"), &verdict,
                                    javaScript, rewrite, findings),
              KXJS_OK);
    EXPECT_EQ(verdict, KXJS_VERDICT_CHANGED);
    EXPECT_EQ(javaScript.str(), " IIF(B=2,'x','y')");
    EXPECT_EQ(rewrite.str(), "IIF(B==2,'x','y')");
    ASSERT_EQ(countOf(findings), 1U);
    kxjs_finding finding{};
    finding.struct_size = sizeof finding;
    ASSERT_EQ(kxjs_findings_get(findings, 0, &finding, code, nullptr, javaScript, rewrite),
              KXJS_OK);
    EXPECT_EQ(code.str(), "EQUALS_ASSIGNS");
    EXPECT_NE(rewrite.str(), "");
    EXPECT_GT(finding.rewrite_length, 0U);
    Units const good(u"A+1");
    ASSERT_EQ(kxjs_translator_check_utf16(translator, good.data(), good.size(), &verdict, nullptr,
                                          nullptr, nullptr),
              KXJS_OK);
    EXPECT_EQ(verdict, KXJS_VERDICT_SAME);
}

}  // namespace
