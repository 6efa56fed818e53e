// kxjs check: reports of formulas that the conversion changes.

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>

#include "Program.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class CheckFiles : public testing::Test {
  protected:
    CheckFiles() : directory_(testing::TempDir() + "kxjs-check") {
        std::filesystem::create_directories(directory_);
    }
    ~CheckFiles() override { std::filesystem::remove_all(directory_); }

    std::string path(std::string const& name) const { return directory_ + "/" + name; }
    std::string write(std::string const& name, std::string const& text) const {
        std::ofstream(path(name), std::ios::binary) << text;
        return path(name);
    }
    std::string read(std::string const& name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

  private:
    std::string directory_;
};

TEST(Check, SaysWhatHappensAndWhatToWrite) {
    Outcome const outcome = kxjs({"check", "A==6", "IIF(A=6,1,2)"});
    EXPECT_EQ(outcome.out,
              "2: changed: IIF(A=6,1,2)\n"
              "    EQUALS_ASSIGNS at 6: \"=\" assigns to the variable; meant: a comparison\n"
              "    write: IIF(A==6,1,2)\n"
              "2 formulas\n"
              "  same                      1   50.0 %\n"
              "  changed                   1   50.0 %\n"
              "formulas with a finding\n"
              "  EQUALS_ASSIGNS            1   50.0 %\n");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 1);
}

TEST(Check, EndsWithSuccessWhereAllKeepTheirMeaning) {
    Outcome const outcome = kxjs({"check", "--all", "A==6"});
    EXPECT_THAT(outcome.out, HasSubstr("1: same: A==6\n"));
    EXPECT_EQ(outcome.status, 0);
}

TEST(Check, CountsLinesAndSkipsBlankOnes) {
    Outcome const outcome = kxjs({"check"}, "A==1\n\nA=2\n");
    EXPECT_THAT(outcome.out, HasSubstr("3: changed: A=2\n"));
    EXPECT_THAT(outcome.out, HasSubstr("2 formulas\n"));
}

TEST(Check, WritesCsv) {
    Outcome const outcome = kxjs({"check", "--csv"}, "A=6\nA==6\n");
    EXPECT_EQ(outcome.out,
              "line,formula,verdict,code,position,length,text,javascript,rewrite,"
              "formula_rewritten\n"
              "1,A=6,changed,EQUALS_ASSIGNS,2,1,\"\"\"=\"\" assigns to the variable; meant: a "
              "comparison\",A=6,A==6,A==6\n");
    EXPECT_THAT(outcome.err, HasSubstr("2 formulas"));
}

TEST(Check, WritesJson) {
    Outcome const outcome = kxjs({"check", "--json", "A='<'", "B==1"});
    EXPECT_THAT(outcome.out, HasSubstr("[\n{\"line\":1,\"formula\":\"A='\\u003c'\","));
    EXPECT_THAT(outcome.out, HasSubstr("\"code\":\"EQUALS_ASSIGNS\",\"position\":1,"));
    EXPECT_THAT(outcome.out, Not(HasSubstr("B==1")));
    EXPECT_THAT(outcome.out, testing::EndsWith("}\n]\n"));
    EXPECT_EQ(kxjs({"check", "--json", "B==1"}).out, "[\n]\n");
}

TEST_F(CheckFiles, ReadsLinesAndColumns) {
    std::string const lines = write("formulas.txt", "A==1\r\nA=2\n");
    EXPECT_THAT(kxjs({"check", "-i", lines}).out, HasSubstr("2: changed: A=2\n"));
    std::string const table = write("formulas.csv", "ID,FORMULA\n1,\"IIF(A=1,2,3)\"\n2,A\n");
    EXPECT_THAT(kxjs({"check", "-i", table, "--column", "FORMULA"}).out,
                HasSubstr("2: changed: IIF(A=1,2,3)\n"));
    Outcome const outcome = kxjs({"check", "-i", table, "--column", "NAME"});
    EXPECT_THAT(outcome.err, HasSubstr("there is no column NAME"));
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(CheckFiles, WritesAPage) {
    std::string const page = path("report.html");
    EXPECT_EQ(kxjs({"check", "--html", page, "A='</script>'"}).status, 1);
    std::string const text = read("report.html");
    EXPECT_THAT(text, testing::StartsWith("<!DOCTYPE html>"));
    EXPECT_THAT(text, HasSubstr("A='\\u003c/script>'"));
}

TEST_F(CheckFiles, RefusesWhatItCannotRead) {
    EXPECT_EQ(kxjs({"check", "-i", path("absent.txt")}).status, 1);
    std::string const bad = write("bad.txt", "A\n\xFF\n");
    Outcome const outcome = kxjs({"check", "-i", bad});
    EXPECT_THAT(outcome.err, HasSubstr("line 2: not UTF-8"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(kxjs({"check", "-i", bad, "A"}).status, 2);
    EXPECT_EQ(kxjs({"check", "--csv", "--json", "A"}).status, 2);
}

TEST(Check, JudgesMoreWithKinds) {
    EXPECT_THAT(kxjs({"check", "S<>T"}).out, HasSubstr("1 formula\n  same "));
    EXPECT_THAT(kxjs({"check", "--variable", "S=text", "S<>T"}).out, HasSubstr("TEXT_COMPARE"));
    EXPECT_THAT(kxjs({"check", "--exact", "--variable", "S=text", "S<>T"}).out,
                HasSubstr("1 formula\n  same "));
}

}  // namespace
