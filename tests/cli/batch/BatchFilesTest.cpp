// kxjs batch: the files that it reads and writes.

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "Program.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

std::string const kForty(40, 'x');

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
