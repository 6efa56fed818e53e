// How the run-time part lives in a context.
#include <gtest/gtest.h>

#include "Translated.h"
#include "host/KxJsVariable.h"
#include "support/Utf8.h"

namespace {

std::u16string run(KxJsParser& host, std::u16string const& source) {
    std::u16string error;
    std::u16string result = host.evaluate(source, error);
    EXPECT_EQ(error, u"");
    return result;
}

TEST(RunTimePart, HostsWithoutItHaveNoTraceOfIt) {
    std::u16string const listing =
        u"Object.getOwnPropertyNames(globalThis).filter((name) => "
        u"!name.includes('NaN')).sort().join()";
    KxJsParser plain;
    plain.initialize();
    std::u16string const before = run(plain, listing);
    EXPECT_EQ(before.find(u"kx"), std::u16string::npos);
    Translated const other;
    EXPECT_EQ(run(plain, listing), before);
}

TEST(RunTimePart, IsNotListedAmongTheFunctions) {
    KxJsParser plain;
    plain.initialize();
    std::u16string const listed = run(plain, u"LISTFUNCT()");
    Translated translated;
    EXPECT_EQ(run(translated.host(), u"LISTFUNCT()"), listed);
}

TEST(RunTimePart, RunsAgainWithoutHarm) {
    Translated translated;
    run(translated.host(), KxJsTranslator::runTimePart());
    EXPECT_EQ(translated.run("LEN('abc')"), "3");
}

TEST(RunTimePart, OutlivesResetsAndInitializations) {
    Translated translated;
    translated.host().reset();
    translated.host().initialize();
    EXPECT_EQ(translated.run("LEN('abc')"), "3");
}

TEST(RunTimePart, CannotBeChangedByFormulas) {
    Translated translated;
    run(translated.host(), u"kx.len = 5; kx = 6; 0");
    EXPECT_EQ(translated.run("LEN('abc')"), "3");
}

TEST(RunTimePart, VariablesMayHaveTheNamesOfItsFunctions) {
    Translated translated;
    for (char16_t const* key : {u"LEFT", u"KX", u"A", u"left", u"l"}) {
        translated.host().addSetVariable(KxJsVariable(key, u"abc"));
    }
    EXPECT_EQ(translated.run("LEFT(A,2)+LEFT"), "ababc");
}

TEST(RunTimePart, NoUpperCaseKeyIsPartOfATranslationWithoutIt) {
    auto const translation = KxJsTranslator().translate(u"IIF(EMPTY(a) .OR. a>=1, STR(a,5), a-1)");
    for (char16_t const unit : translation.javaScript) {
        bool const isUpper = unit >= u'B' && unit <= u'Z' && unit != u'I' && unit != u'F' &&
                             unit != u'O' && unit != u'R';
        EXPECT_FALSE(isUpper) << kx::test::toUtf8(translation.javaScript);
    }
}

}  // namespace
