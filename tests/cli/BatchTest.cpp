// kxjs batch: CSV in and out, types, failing records.

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <ostream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "Program.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

struct Case {
    char const* name;
    std::vector<std::string> arguments;
    std::string input;
    std::string out;
    std::string err{};
    int status = 0;
};
void PrintTo(Case const& row, std::ostream* out) { *out << row.name; }

std::string const kForty(40, 'x');

class Batch : public testing::TestWithParam<Case> {};

TEST_P(Batch, AddsAColumn) {
    std::vector<std::string> arguments = GetParam().arguments;
    arguments.insert(arguments.begin(), "batch");
    Outcome const outcome = kxjs(arguments, GetParam().input);
    EXPECT_EQ(outcome.out, GetParam().out);
    EXPECT_EQ(outcome.err, GetParam().err);
    EXPECT_EQ(outcome.status, GetParam().status);
}

INSTANTIATE_TEST_SUITE_P(
    Csv, Batch,
    testing::Values(
        Case{"numbers", {"A*B"}, "A,B\n2,3\n1.5,4\n", "A,B,RESULT\n2,3,6\n1.5,4,6\n"},
        Case{"formula_is_converted",
             {"IIF(A<>1 .AND. A>0,'OK','KO')"},
             "A\n1\n2\n",
             "A,RESULT\n1,KO\n2,OK\n"},
        Case{"javascript", {"--js", "'<>'+A"}, "A\n1\n", "A,RESULT\n1,<>1\n"},
        Case{"name_of_the_result", {"A", "--as", "a,b"}, "A\n1\n", "A,\"a,b\"\n1,1\n"},
        Case{"carriage_returns",
             {"A+1"},
             "A,B\r\n1,x\r\n2,y\r\n",
             "A,B,RESULT\r\n1,x,2\r\n2,y,3\r\n"},
        Case{"line_feed_in_the_header",
             {"B+1"},
             "\"A\nX\",B\r\n1,2\r\n",
             "\"A\nX\",B,RESULT\r\n1,2,3\r\n"},
        Case{"carriage_return_in_the_header",
             {"B+1"},
             "\"A\r\nX\",B\n1,2\n",
             "\"A\r\nX\",B,RESULT\n1,2,3\n"},
        Case{"carriage_return_behind_the_header_only", {"A+1"}, "A\r1\r\n", "A,RESULT\n1,2\n"},
        Case{"lone_carriage_returns", {"A+1"}, "A\r1\r2\r", "A,RESULT\n1,2\n2,3\n"},
        Case{"byte_order_mark",
             {"A+1"},
             "\xEF\xBB\xBF"
             "A\n1\n",
             "\xEF\xBB\xBF"
             "A,RESULT\n1,2\n"},
        Case{"no_last_line_end", {"A+1"}, "A\n1\n2", "A,RESULT\n1,2\n2,3\n"},
        Case{"header_alone", {"A+1"}, "A,B\n", "A,B,RESULT\n"},
        Case{"blank_lines_between_records_of_several_cells",
             {"A+1"},
             "\nA,B\n\n1,x\n\n\n2,y\n\n",
             "A,B,RESULT\n1,x,2\n2,y,3\n"},
        Case{"blank_lines_in_one_column_are_empty_cells",
             {"A+'!'"},
             "\nA\nx\n\ny\n",
             "A,RESULT\nx,x!\n,!\ny,y!\n"},
        Case{"blank_lines_in_one_column_with_carriage_returns",
             {"A+'!'"},
             "\r\nA\r\n\r\nx\r\n\r\n\r\ny\r\n",
             "A,RESULT\r\n,!\r\nx,x!\r\n,!\r\n,!\r\ny,y!\r\n"},
        Case{"blank_lines_in_one_column_with_lone_carriage_returns",
             {"A+'!'"},
             "A\rx\r\ry\r",
             "A,RESULT\nx,x!\n,!\ny,y!\n"},
        Case{"quoted_cells",
             {"A.length"},
             "A\n\"a,b\"\n\"say \"\"no\"\"\"\n\"two\nlines\"\n\"\"\n",
             "A,RESULT\n\"a,b\",3\n\"say \"\"no\"\"\",8\n\"two\nlines\",9\n,0\n"},
        Case{"result_is_quoted", {"A+',\"'"}, "A\nx\n", "A,RESULT\nx,\"x,\"\"\"\n"},
        Case{"blanks_belong_to_cells", {"'['+A+']'"}, "A\n x \n", "A,RESULT\n x ,[ x ]\n"},
        Case{"delimiter", {"A+B", "--delimiter", ";"}, "A;B\n1;2\n", "A;B;RESULT\n1;2;3\n"},
        Case{"tabs", {"A+B", "--delimiter", "tab"}, "A\tB\n1\t2\n", "A\tB\tRESULT\n1\t2\t3\n"},
        Case{"utf8", {"Größe*2+'€'"}, "Größe\n4\n", "Größe,RESULT\n4,8€\n"},
        Case{"headers_that_are_no_names",
             {"A+1"},
             "unit price,2x,in,,A\n5,6,7,8,1\n",
             "unit price,2x,in,,A,RESULT\n5,6,7,8,1,2\n"},
        Case{"headers_inside_other_words",
             {"MAX(PRICE,1)"},
             "A,PRICE\nx,7\n",
             "A,PRICE,RESULT\nx,7,7\n"},
        Case{"header_of_a_function", {"LEFT(A,1)"}, "A,LEFT\nxyz,2\n", "A,LEFT,RESULT\nxyz,2,x\n"},
        Case{"missing_cells_of_texts", {"B+'!'"}, "A,B\n1\n", "A,B,RESULT\n1,,!\n"},
        Case{"cells_with_zeros_in_front_are_texts",
             {"A+1"},
             "A\n007\n8\n",
             "A,RESULT\n007,0071\n8,81\n"},
        Case{"long_digits_are_texts",
             {"A+'x'"},
             "A\n12345678901234567890\n",
             "A,RESULT\n12345678901234567890,12345678901234567890x\n"},
        Case{"mixed_cells_are_texts", {"A+1"}, "A\n1\ntrue\n", "A,RESULT\n1,11\ntrue,true1\n"},
        Case{"truths", {"!A"}, "A\ntrue\nfalse\n", "A,RESULT\ntrue,false\nfalse,true\n"},
        Case{"given_types",
             {"A+B", "--type", "A=string", "--type", "B=double"},
             "A,B\n1,01\n",
             "A,B,RESULT\n1,01,11\n"},
        Case{"statements", {"--js", "var t=A;A=9;t*2"}, "A\n1\n2\n", "A,RESULT\n1,2\n2,4\n"}));

INSTANTIATE_TEST_SUITE_P(
    Failures, Batch,
    testing::Values(
        Case{"failing_records",
             {"--js", "A=='x'?missing:A"},
             "A\na\nx\nb\n",
             "A,RESULT\na,a\nx,\nb,b\n",
             "kxjs: line 3: ReferenceError: missing is not defined\n"
             "A=='x'?missing:A\n       ^^^^^^^\n",
             1},
        Case{"failures_in_the_formula_as_it_was_typed",
             {"IIF(A<>1,MISSING,A)"},
             "A\n1\n2\n",
             "A,RESULT\n1,\n2,\n",
             "kxjs: line 2: ReferenceError: MISSING is not defined\n"
             "IIF(A<>1,MISSING,A)\n         ^^^^^^^\n"
             "kxjs: line 3: ReferenceError: MISSING is not defined\n",
             1},
        Case{"failures_in_what_the_formula_became",
             {"MOD(A,NOPE(1))"},
             "A\n1\n",
             "A,RESULT\n1,\n",
             "kxjs: line 2: ReferenceError: NOPE is not defined\n"
             "In the formula's JavaScript:\n ( A % NOPE(1 ) )\n ^\n",
             1},
        Case{"place_shown_when_it_changes",
             {"--js", "A==1?ONE:\nTWO"},
             "A\n1\n1\n2\n2\n1\n",
             "A,RESULT\n1,\n1,\n2,\n2,\n1,\n",
             "kxjs: line 2: ReferenceError: ONE is not defined\nA==1?ONE:\n     ^^^\n"
             "kxjs: line 3: ReferenceError: ONE is not defined\n"
             "kxjs: line 4: ReferenceError: TWO is not defined\nTWO\n^^^\n"
             "kxjs: line 5: ReferenceError: TWO is not defined\n"
             "kxjs: line 6: ReferenceError: ONE is not defined\nA==1?ONE:\n     ^^^\n",
             1},
        Case{"messages_of_several_lines",
             {"--js", "throw 'a\\nb'"},
             "A\n1\n",
             "A,RESULT\n1,\n",
             "kxjs: line 2: a b\nthrow 'a\\nb'\n^^^^^\n",
             1},
        Case{"not_a_number",
             {"A*2"},
             "A\nx\n",
             "A,RESULT\nx,NaN\n",
             "kxjs: line 2: Not A Number\n",
             1},
        Case{"lines_are_those_of_the_file",
             {"A*2"},
             "A,B\r\n1,\"x\r\ny\nz\"\r\n\r\n,2\r\n3,4\r\n",
             "A,B,RESULT\r\n1,\"x\r\ny\nz\",2\r\n,2,\r\n3,4,6\r\n",
             "kxjs: line 6: column A: an empty cell is not a number\n",
             1},
        Case{"blank_lines_in_a_column_of_numbers",
             {"A*2"},
             "A\n1\n\n3\n",
             "A,RESULT\n1,2\n,\n3,6\n",
             "kxjs: line 3: column A: an empty cell is not a number\n",
             1},
        Case{"cells_of_another_type",
             {"A*2", "--type", "A=long"},
             "A\n1\n1.5\nx\n",
             "A,RESULT\n1,2\n1.5,\nx,\n",
             "kxjs: line 3: column A: \"1.5\" is not a whole number of 32 bits\n"
             "kxjs: line 4: column A: \"x\" is not a whole number of 32 bits\n",
             1},
        Case{"cells_that_are_not_used_are_not_looked_at",
             {"B"},
             "A,B\n\xFF,1\n",
             "A,B,RESULT\n\xFF,1,1\n"},
        Case{"no_utf8",
             {"A", "--type", "A=string"},
             "A\n\xFF\n",
             "A,RESULT\n\xFF,\n",
             "kxjs: line 2: column A: byte 1 of the cell is not UTF-8\n",
             1},
        Case{"no_utf8_among_numbers",
             {"A", "--type", "A=double"},
             "A\n1\xFF\n",
             "A,RESULT\n1\xFF,\n",
             "kxjs: line 2: column A: byte 2 of the cell is not UTF-8\n",
             1},
        Case{"long_cells_are_cut_in_messages",
             {"B", "--type", "B=long"},
             "A,B\n1," + kForty + "\n2," + kForty + "x\n3," + kForty.substr(1) + "😀x\n",
             "A,B,RESULT\n1," + kForty + ",\n2," + kForty + "x,\n3," + kForty.substr(1) + "😀x,\n",
             "kxjs: line 2: column B: \"" + kForty + "\" is not a whole number of 32 bits\n" +
                 "kxjs: line 3: column B: \"" + kForty + "…\" is not a whole number of 32 bits\n" +
                 "kxjs: line 4: column B: \"" + kForty.substr(1) +
                 "…\" is not a whole number of 32 bits\n",
             1},
        Case{"formula_that_does_not_compile",
             {"A+*1"},
             "A\n1\n",
             "",
             "Error in line: 1\nSyntaxError: Unexpected token '*'\nA+*1\n  ^\n",
             1},
        Case{"too_many_cells",
             {"A"},
             "A\n1\n1,2\n3\n",
             "A,RESULT\n1,1\n1,2,\n3,3\n",
             "kxjs: line 3: 2 cells, where the header has 1\n",
             1},
        Case{"too_many_cells_do_not_change_a_type",
             {"A+1"},
             "A,B\nx,1,2\n3,4\n",
             "A,B,RESULT\nx,1,2,\n3,4,4\n",
             "kxjs: line 2: 3 cells, where the header has 2\n",
             1},
        Case{"open_quote",
             {"A"},
             "A\n1\n\"2\n",
             "",
             "kxjs: standard input, line 3: not CSV: a quote that is not closed, or one inside a "
             "cell that is not quoted\n",
             1},
        Case{"quote_inside_a_cell",
             {"A"},
             "A\nx\"y\n",
             "",
             "kxjs: standard input, line 2: not CSV: a quote that is not closed, or one inside a "
             "cell that is not quoted\n",
             1},
        Case{"empty_file", {"A"}, "", "", "kxjs: standard input: there is no header\n", 1},
        Case{"zero_byte",
             {"A"},
             std::string("A\n1\0\n", 5),
             "",
             "kxjs: standard input, line 1: a zero byte here or further on\n",
             1},
        Case{"control_characters_in_a_cell",
             {"A", "--type", "A=long"},
             "A\n\"\x1B[2J\tx\ny\xC2\x9B\"\n",
             "A,RESULT\n\"\x1B[2J\tx\ny\xC2\x9B\",\n",
             "kxjs: line 2: column A: \"\\u001B[2J\\u0009x y\\u009B\" is not a whole number of 32 "
             "bits\n",
             1},
        Case{"control_characters_in_an_exception",
             {"--js", "throw A+'\\x1B[2J\\x7F'"},
             "A\n1\n",
             "A,RESULT\n1,\n",
             "kxjs: line 2: 1\\u001B[2J\\u007F\nthrow A+'\\x1B[2J\\x7F'\n^^^^^\n",
             1},
        Case{"long_header",
             {kForty + "yy"},
             kForty + "yy,B\ntrue,1\n,2\n",
             kForty + "yy,B,RESULT\ntrue,1,true\n,2,\n",
             "kxjs: line 3: column " + kForty + "…: an empty cell is not \"true\" or \"false\"\n",
             1},
        Case{"long_header_twice",
             {kForty + "yy"},
             kForty + "yy," + kForty + "yy\n1,2\n",
             "",
             "kxjs: two columns are called \"" + kForty + "…\"\n",
             1},
        Case{"blanks_beyond_ascii_are_no_letters",
             {"--js", "A\u2003+\u00A0B"},
             "A,B\n1,2\n",
             "A,B,RESULT\n1,2,3\n"},
        Case{"two_columns_of_a_name",
             {"A"},
             "A,A\n1,2\n",
             "",
             "kxjs: two columns are called \"A\"\n",
             1},
        Case{"type_of_no_column",
             {"A", "--type", "B=long"},
             "A\n1\n",
             "",
             "kxjs: --type B: there is no such column\n",
             2},
        Case{"no_type",
             {"A", "--type", "A=text"},
             "A\n1\n",
             "",
             "kxjs: --type \"A=text\": expected NAME=double, long, string or bool\n",
             2},
        Case{"no_delimiter",
             {"A", "--delimiter", "ab"},
             "A\n1\n",
             "",
             "kxjs: --delimiter \"ab\": expected one ASCII character, or tab\n",
             2},
        Case{"result_with_the_name_of_a_column",
             {"A", "--as", "A"},
             "A\n1\n",
             "",
             "kxjs: --as A: there is such a column already\n",
             2}));

std::string bytesOf(fs::path const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// A temporary directory for each test.
class BatchFiles : public testing::Test {
  protected:
    BatchFiles() { fs::create_directory(directory); }
    ~BatchFiles() override { fs::remove_all(directory); }

    void write(char const* name, std::string const& bytes) const {
        std::ofstream(directory / name, std::ios::binary) << bytes;
    }

    fs::path const directory =
        fs::temp_directory_path() / ("kxjs-batch-" + std::to_string(::getpid()));
    std::string const in = (directory / "in.csv").string();
    std::string const out = (directory / "out.csv").string();
};

TEST_F(BatchFiles, AreReadAndReplaced) {
    write("in.csv", "A\n1\n");
    write("out.csv", "old");
    Outcome const outcome = kxjs({"batch", "A+1", "-i", in, "-o", out});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out + outcome.err, "");
    EXPECT_EQ(bytesOf(out), "A,RESULT\n1,2\n");
    EXPECT_EQ(kxjs({"batch", "A+2", "-i", out, "-o", out, "--as", "B"}).status, 0);
    EXPECT_EQ(bytesOf(out), "A,RESULT,B\n1,2,3\n");
}

TEST_F(BatchFiles, StayWhereSomethingIsWrong) {
    write("in.csv", "A\n1\n\"");
    write("out.csv", "old");
    EXPECT_EQ(kxjs({"batch", "A+1", "-i", in, "-o", out}).status, 1);
    EXPECT_EQ(bytesOf(out), "old");
    Outcome const missing = kxjs({"batch", "A", "-i", in + "x", "-o", out});
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.err, StartsWith("kxjs: cannot read " + in + "x: "));
    EXPECT_EQ(bytesOf(out), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(directory), fs::directory_iterator()), 2);
}

TEST_F(BatchFiles, AreWrittenIntoWhereTheyAreStandardOutput) {
    write("out.csv", "old");
    fs::create_hard_link(out, out + ".link");
    Outcome const outcome = run({.arguments = {"batch", "A+1", "-o", "/dev/stdout"},
                                 .input = "A\n1\n",
                                 .environment = {},
                                 .outputFile = out});
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(bytesOf(out), "A,RESULT\n1,2\n");
    EXPECT_TRUE(fs::equivalent(out, out + ".link"));
    // Also where standard output is a file without a name.
    EXPECT_EQ(kxjs({"batch", "A+1", "-o", "/dev/stdout"}, "A\n1\n").out, "A,RESULT\n1,2\n");
}

TEST_F(BatchFiles, AreNotReadAndAppendedTo) {
    write("in.csv", "A\n1\n");
    for (std::vector<std::string> const& arguments :
         {std::vector<std::string>{"batch", "A+1", "-i", in, "-o", in},
          std::vector<std::string>{"batch", "A+1", "-i", in}}) {
        Outcome const outcome =
            run({.arguments = arguments, .input = {}, .environment = {}, .outputFile = in});
        EXPECT_EQ(outcome.err,
                  "kxjs: " + in + ": the output would go into the file that is read\n");
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(bytesOf(in), "A\n1\n");
    }
}

TEST_F(BatchFiles, LeaveNothingWhereNobodyReadsTheOutput) {
    write("in.csv", "A\n1\n");
    Outcome const outcome = runWithClosedPipe({"batch", "A+1", "-i", in});
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 128 + SIGPIPE);
}

TEST_F(BatchFiles, ThatArePipesAreWrittenInto) {
    ASSERT_EQ(::mkfifo(out.c_str(), 0600), 0);
    // The test opens both ends of the pipe, so that kxjs does not block when it opens it.
    int const pipe = ::open(out.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(pipe, 0);
    EXPECT_EQ(kxjs({"batch", "A+1", "-o", out}, "A\n1\n").status, 0);
    std::string bytes(100, '\0');
    ssize_t const count = ::read(pipe, bytes.data(), bytes.size());
    ::close(pipe);
    ASSERT_GE(count, 0);
    bytes.resize(static_cast<std::size_t>(count));
    EXPECT_EQ(bytes, "A,RESULT\n1,2\n");
    EXPECT_TRUE(fs::is_fifo(out));
}

TEST_F(BatchFiles, MayBeLargerThanABlock) {
    std::string text = "A,NOTE\r\n";
    std::string expected = "A,NOTE,RESULT\r\n";
    constexpr int kRecords = 450000;
    for (int i = 0; i < kRecords; ++i) {
        std::string const record =
            i == kRecords - 1 ? "x,last"
                              : std::to_string(i) + ",\"a\r\nb " + std::to_string(i) + "\"";
        text += record + "\r\n";
        expected += record + "," + (i == kRecords - 1 ? "" : std::to_string(i * 2)) + "\r\n";
    }
    ASSERT_GT(text.size(), std::size_t{9} << 20);
    write("in.csv", text);
    Outcome const outcome = kxjs({"batch", "A*2", "-i", in, "-o", out});
    EXPECT_EQ(outcome.err, "kxjs: line 900000: column A: \"x\" is not a number\n");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(bytesOf(out) == expected);
}

TEST_F(BatchFiles, LongTextsAreNotCutSilently) {
    write("in.csv", "A\n" + std::string(255, 'x') + "\n" + std::string(256, 'x') + "\n");
    Outcome const outcome = kxjs({"batch", "A.length", "-i", in});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, HasSubstr("x,255\n"));
    EXPECT_EQ(outcome.err, "kxjs: line 3: column A: \"" + kForty +
                               "…\" is not a text of at most 255 characters\n");
}

TEST_F(BatchFiles, ShowProgressOnATerminalOnly) {
    if (!hasTerminals()) GTEST_SKIP() << "this system has no terminals";
    std::string text = "A\n";
    for (int i = 0; i < 3000000; ++i) text += "12345\n";
    write("in.csv", text);
    Outcome const outcome =
        runOnTerminal({"batch", "--js", "var x=A;x", "-i", in, "-o", out}, 80, true);
    EXPECT_THAT(outcome.out, HasSubstr("% "));
    EXPECT_THAT(outcome.out, HasSubstr("/s, "));
    EXPECT_THAT(outcome.out, HasSubstr(" left"));
}

}  // namespace
