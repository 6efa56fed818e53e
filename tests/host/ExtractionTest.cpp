#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

#include "ScriptHost.h"

namespace {

struct ExtractionCase {
    std::u16string source;
    std::vector<std::u16string> names;
};

class Extraction : public testing::TestWithParam<ExtractionCase> {};

TEST_P(Extraction, finds) {
    std::u16string error;
    EXPECT_EQ(KxJsParser::_extractVariable(GetParam().source, error), GetParam().names);
    EXPECT_EQ(error, u"");
}

INSTANTIATE_TEST_SUITE_P(
    sources, Extraction,
    testing::Values(ExtractionCase{u"A+B", {u"A", u"B"}},                            //
                    ExtractionCase{u"B+A", {u"B", u"A"}},                            // run order
                    ExtractionCase{u"ROUND(X,2)", {u"X"}}, ExtractionCase{u"", {}},  //
                    ExtractionCase{u"1+1", {}},                                      //
                    ExtractionCase{u"A+A+A", {u"A"}},                                //
                    ExtractionCase{u"null.x + Y", {}},  // the first failure is another one
                    ExtractionCase{u"0/0; X", {u"X"}},  //
                    ExtractionCase{u"'NaN'", {}},       //
                    ExtractionCase{u"var NaNs = NaN + Y", {u"Y"}},  //
                    ExtractionCase{u"B ? A : C",
                                   {u"B", u"A"}},  // a blank is true, so C is never evaluated
                    ExtractionCase{u"!B ? A : C", {u"B", u"C"}},  //
                    ExtractionCase{u"typeof Z", {}},              //
                    ExtractionCase{u"A.x.y + B", {u"A"}},         // a type error ends the search
                    ExtractionCase{u"throw 'q is gone'", {}},     //
                    ExtractionCase{u"throw { message: 'two words' }", {}},
                    ExtractionCase{u"LEN(NAME) + prix", {u"NAME", u"prix"}},
                    ExtractionCase{u"été + 中", {u"été", u"中"}}));

TEST(Extraction, reportsASourceThatDoesNotCompile) {
    std::u16string error;
    EXPECT_TRUE(KxJsParser::_extractVariable(u"1+", error).empty());
    EXPECT_EQ(error.substr(0, 18), u"Error in line: 1\r\n");
}

TEST(Extraction, leavesOtherHostsAlone) {
    ScriptHost host;
    host.bind(u"A", 1);
    std::u16string error;
    EXPECT_EQ(KxJsParser::_extractVariable(u"A+(made=B)", error),
              (std::vector<std::u16string>{u"A", u"B"}));
    EXPECT_EQ(host.eval(u"A"), u"1");
    EXPECT_EQ(host.eval(u"typeof made"), u"undefined");
}

TEST(ExtractionDeathTest, neverEndsOnASourceThatClaimsAMissingName) {
    for (std::u16string const source :
         {u"'q is not defined'", u"eval('made' + 'Up')", u"' is not defined'"}) {
        EXPECT_EXIT(
            {
                ualarm(300000, 0);
                std::u16string error;
                KxJsParser::_extractVariable(source, error);
            },
            testing::KilledBySignal(SIGALRM), "");
    }
}

TEST(Extraction, endsWithItsTime) {
    using std::chrono::milliseconds;
    for (std::u16string const source :
         {u"'q is not defined'", u"eval('made' + 'Up')", u"A; for (;;);",
          u"for (;;) try { eval('made' + 'Up') } catch (e) {}"}) {
        std::u16string error;
        KxJsParser::_extractVariable(source, error, milliseconds(30));
        EXPECT_EQ(error, u"The script was ended: it ran longer than its time limit of 30 ms");
    }
}

TEST(Extraction, givesTheNamesFoundWithinItsTime) {
    std::u16string error;
    EXPECT_EQ(
        KxJsParser::_extractVariable(u"A + B; for (;;);", error, std::chrono::milliseconds(500)),
        (std::vector<std::u16string>{u"A", u"B"}));
}

TEST(Extraction, withoutALimitOfTimeIsAsEver) {
    std::u16string error;
    std::chrono::milliseconds const none{0};
    EXPECT_EQ(KxJsParser::_extractVariable(u"A + B", error, none),
              (std::vector<std::u16string>{u"A", u"B"}));
    EXPECT_EQ(KxJsParser::_extractVariable(u"A + B", error, std::chrono::milliseconds::max()),
              (std::vector<std::u16string>{u"A", u"B"}));
    EXPECT_EQ(error, u"");
    EXPECT_TRUE(KxJsParser::_extractVariable(u"1+", error, none).empty());
    EXPECT_EQ(error.substr(0, 18), u"Error in line: 1\r\n");
}

TEST(Extraction, tellsOfTheMemoryLimitWhereItMayTellOfLimits) {
    ScriptHost host;
    host.host.setMemoryLimit(std::size_t{32} << 20);
    std::u16string const source = u"A; for (var a = [];;) a.push([a.length]);";
    std::u16string error;
    EXPECT_EQ(KxJsParser::_extractVariable(source, error), (std::vector<std::u16string>{u"A"}));
    EXPECT_EQ(error, u"");
    EXPECT_EQ(KxJsParser::_extractVariable(source, error, std::chrono::milliseconds(0)),
              (std::vector<std::u16string>{u"A"}));
    EXPECT_EQ(error, u"The script was ended: it needed more than the memory limit of 32 MiB");
    host.host.setMemoryLimit(std::size_t{512} << 20);
}

}  // namespace
