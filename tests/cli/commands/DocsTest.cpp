// kxjs docs: the files that it writes, and what remains when writing fails.

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <vector>

#include "Program.h"

namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using testing::UnorderedElementsAre;

std::string const kByteOrderMark = "\xEF\xBB\xBF";

std::string contentsOf(fs::path const& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream contents;
    contents << file.rdbuf();
    return contents.str();
}

void write(fs::path const& path, std::string const& contents) {
    std::ofstream(path, std::ios::binary) << contents;
}

/// A temporary directory for each test. Blanks in its name show missing quotes.
class Docs : public testing::Test {
  protected:
    Docs() {
        std::string pattern = (fs::temp_directory_path() / "kxjs docs XXXXXX").string();
        directory_ = ::mkdtemp(pattern.data());
    }
    ~Docs() override { fs::remove_all(directory_); }

    fs::path path(std::string const& name) const { return directory_ / name; }
    std::set<std::string> namesIn(fs::path const& directory) const {
        std::set<std::string> names;
        for (auto const& entry : fs::directory_iterator(directory)) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }
    /// Every file of a directory with its contents.
    std::map<std::string, std::string> filesIn(fs::path const& directory) const {
        std::map<std::string, std::string> files;
        for (std::string const& name : namesIn(directory)) {
            files[name] = contentsOf(directory / name);
        }
        return files;
    }
    std::set<std::string> names() const { return namesIn(directory_); }

  private:
    fs::path directory_;
};

TEST_F(Docs, PrintsOnePage) {
    Outcome const outcome = kxjs({"docs"});
    EXPECT_THAT(outcome.out, AllOf(StartsWith("<!doctype html>\n"), EndsWith("</html>"),
                                   HasSubstr("id='ROUND'"), Not(HasSubstr("Example :"))));
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST_F(Docs, IncludesExamplesOnRequest) {
    EXPECT_THAT(kxjs({"docs", "--examples"}).out,
                AllOf(HasSubstr("Example :"), HasSubstr("ROUND(10.523, 2) &rarr; 10.52")));
}

TEST_F(Docs, LeavesHeadAndBodyOutOfAFragment) {
    std::string const out = kxjs({"docs", "--fragment"}).out;
    EXPECT_THAT(out, AllOf(StartsWith("\t<h1>Mathematical functions</h1>\n"),
                           Not(HasSubstr("<body>")), Not(HasSubstr("</html>"))));
}

TEST_F(Docs, WritesAFileThatBrowsersReadAsUtf8) {
    Outcome const outcome = kxjs({"docs", "--examples", "-o", path("doc.html")});
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(contentsOf(path("doc.html")), kByteOrderMark + kxjs({"docs", "--examples"}).out);
    EXPECT_THAT(names(), UnorderedElementsAre("doc.html"));
}

TEST_F(Docs, WritesAFragmentWithoutByteOrderMark) {
    EXPECT_EQ(kxjs({"docs", "--fragment", "-o", path("part.html")}).status, 0);
    EXPECT_EQ(contentsOf(path("part.html")), kxjs({"docs", "--fragment"}).out);
}

TEST_F(Docs, WritesToStandardOutputForADash) {
    EXPECT_EQ(kxjs({"docs", "-o", "-"}).out, kxjs({"docs"}).out);
}

TEST_F(Docs, WritesIntoTheFileThatIsStandardOutput) {
    fs::path const file = path("page.html");
    write(file, "old");
    fs::create_hard_link(file, path("link.html"));
    Outcome const outcome = run({.arguments = {"docs", "-o", "/dev/stdout"},
                                 .input = {},
                                 .environment = {},
                                 .outputFile = file.string()});
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(fs::equivalent(file, path("link.html")));
    EXPECT_EQ(contentsOf(file), kxjs({"docs"}).out);
}

TEST_F(Docs, ReplacesAFileAndKeepsItsPermissions) {
    write(path("doc.html"), std::string(1000000, 'x'));
    ASSERT_EQ(::chmod(path("doc.html").c_str(), 0640), 0);
    EXPECT_EQ(kxjs({"docs", "-o", path("doc.html")}).status, 0);
    EXPECT_EQ(contentsOf(path("doc.html")), kByteOrderMark + kxjs({"docs"}).out);
    EXPECT_EQ(fs::status(path("doc.html")).permissions(), fs::perms{0640});
    EXPECT_THAT(names(), UnorderedElementsAre("doc.html"));
}

TEST_F(Docs, ReplacesTheFileBehindALink) {
    write(path("real.html"), "old");
    fs::create_symlink("real.html", path("link.html"));
    EXPECT_EQ(kxjs({"docs", "-o", path("link.html")}).status, 0);
    EXPECT_TRUE(fs::is_symlink(path("link.html")));
    EXPECT_THAT(contentsOf(path("real.html")), HasSubstr("<!doctype html>"));
}

TEST_F(Docs, WritesIntoADeviceInsteadOfReplacingIt) {
    EXPECT_EQ(kxjs({"docs", "-o", "/dev/null"}).status, 0);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(Docs, ReportsADeviceThatIsFull) {
    Outcome const outcome = kxjs({"docs", "-o", "/dev/full"});
    EXPECT_THAT(outcome.err, StartsWith("kxjs: cannot write /dev/full: "));
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(Docs, ReportsAFullStandardOutput) {
    Outcome const outcome =
        run({.arguments = {"docs"}, .input = {}, .environment = {}, .outputFile = "/dev/full"});
    EXPECT_THAT(outcome.err, StartsWith("kxjs: cannot write to standard output: "));
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(Docs, RefusesADirectoryAsFile) {
    fs::create_directory(path("taken"));
    Outcome const outcome = kxjs({"docs", "-o", path("taken")});
    EXPECT_THAT(outcome.err, AllOf(HasSubstr("taken"), HasSubstr("directory")));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(names(), UnorderedElementsAre("taken"));
}

/// kxjs with one failing call of a system function.
Outcome runFailing(std::string const& call, std::vector<std::string> const& arguments) {
    // The loader splits LD_PRELOAD at blanks, which the path of the build may contain.
    std::string directory = (fs::temp_directory_path() / "kxjs-failing-XXXXXX").string();
    if (::mkdtemp(directory.data()) == nullptr) throw std::runtime_error("mkdtemp");
    fs::path const library = fs::path(directory) / "library.so";
    fs::create_symlink(KXJS_FAILING_CALLS, library);
    Outcome outcome = run({.arguments = arguments,
                           .input = {},
                           .environment = {{"LD_PRELOAD", library.string()},
                                           {"KXJS_FAIL", call},
                                           {"ASAN_OPTIONS", "verify_asan_link_order=0"}},
                           .outputFile = {}});
    fs::remove_all(directory);
    return outcome;
}

TEST_F(Docs, LeavesAFileAsItWasWhenTheDiskFails) {
    write(path("doc.html"), "old");
    for (char const* call : {"fsync 1", "rename 1"}) {
        Outcome const outcome = runFailing(call, {"docs", "-o", path("doc.html")});
        EXPECT_THAT(outcome.err, StartsWith("kxjs: cannot write " + path("doc.html: ").string()))
            << call;
        EXPECT_EQ(outcome.status, 1) << call;
        EXPECT_THAT(names(), UnorderedElementsAre("doc.html")) << call;
        EXPECT_EQ(contentsOf(path("doc.html")), "old") << call;
    }
}

// Permissions do not stop root. These paths fail for every user.
TEST_F(Docs, ReportsAFileThatCannotBeMade) {
    write(path("plain"), "text");
    for (fs::path const& target :
         {path("missing/doc.html"), path("plain/doc.html"), fs::path("/proc/doc.html")}) {
        Outcome const outcome = kxjs({"docs", "-o", target});
        EXPECT_THAT(outcome.err, StartsWith("kxjs: cannot write " + target.string() + ": "));
        EXPECT_EQ(outcome.status, 1);
    }
    EXPECT_THAT(names(), UnorderedElementsAre("plain"));
    EXPECT_EQ(contentsOf(path("plain")), "text");
}

TEST_F(Docs, WritesOnePageForEachFunctionAndAnIndexThatLinksThem) {
    Outcome const outcome = kxjs({"docs", "--pages", path("pages")});
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "");
    ASSERT_EQ(outcome.status, 0);

    std::set<std::string> pages = namesIn(path("pages"));
    EXPECT_EQ(pages.size(), 64u);
    EXPECT_EQ(pages.erase("index.html"), 1u);
    std::string const index = contentsOf(path("pages") / "index.html");
    std::set<std::string> links;
    std::regex const link("<a href='([^']*)'>([A-Z0-9_]+)\\(");
    for (std::sregex_iterator at(index.begin(), index.end(), link), end; at != end; ++at) {
        EXPECT_EQ((*at)[1], (*at)[2].str() + ".html");
        links.insert((*at)[1]);
    }
    EXPECT_EQ(links, pages);
    for (char const* heading :
         {"Mathematical functions", "String functions", "Miscellaneous functions"}) {
        EXPECT_THAT(index, HasSubstr(std::string("<h3 class='titreBlock'>") + heading + "</h3>"));
    }
}

TEST_F(Docs, WritesPagesThatBrowsersReadAsUtf8) {
    ASSERT_EQ(kxjs({"docs", "--pages", path("pages")}).status, 0);
    for (std::string const& name : namesIn(path("pages"))) {
        std::string const page = contentsOf(path("pages") / name);
        EXPECT_THAT(page, StartsWith(kByteOrderMark + "<!doctype html>\n")) << name;
    }
    EXPECT_THAT(contentsOf(path("pages") / "ROUND.html"),
                AllOf(HasSubstr("<h1>ROUND</h1>"), EndsWith("</html>")));
    EXPECT_EQ(fs::status(path("pages")).permissions() & fs::perms::owner_all, fs::perms::owner_all);
}

TEST_F(Docs, ReplacesPagesAndLeavesOtherFilesAlone) {
    fs::create_directory(path("pages"));
    write(path("pages") / "ROUND.html", "old");
    write(path("pages") / "style.css", "mine");
    EXPECT_EQ(kxjs({"docs", "--pages", path("pages").string() + "/"}).status, 0);
    EXPECT_THAT(contentsOf(path("pages") / "ROUND.html"), HasSubstr("<h1>ROUND</h1>"));
    EXPECT_EQ(contentsOf(path("pages") / "style.css"), "mine");
    EXPECT_EQ(namesIn(path("pages")).size(), 65u);
}

TEST_F(Docs, LeavesADirectoryAsItWasWhenOnePageCannotTakeItsPlace) {
    fs::create_directories(path("pages") / "ROUND.html");
    write(path("pages") / "LOG.html", "old");
    Outcome const outcome = kxjs({"docs", "--pages", path("pages")});
    EXPECT_THAT(outcome.err, AllOf(StartsWith("kxjs: cannot write "), HasSubstr("ROUND.html")));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(namesIn(path("pages")), UnorderedElementsAre("ROUND.html", "LOG.html"));
    EXPECT_EQ(contentsOf(path("pages") / "LOG.html"), "old");
}

TEST_F(Docs, LeavesADirectoryAsItWasWhenTheDiskFails) {
    fs::create_directory(path("pages"));
    write(path("pages") / "LOG.html", "old");
    write(path("pages") / "style.css", "mine");
    auto const before = filesIn(path("pages"));
    // While the files are written, and at the first move.
    for (char const* call : {"fsync 1", "fsync 40", "fsync 64", "rename 1"}) {
        Outcome const outcome = runFailing(call, {"docs", "--pages", path("pages")});
        EXPECT_THAT(outcome.err, StartsWith("kxjs: cannot write " + path("pages").string()))
            << call;
        EXPECT_EQ(outcome.status, 1) << call;
        EXPECT_EQ(filesIn(path("pages")), before) << call;
    }
}

TEST_F(Docs, ReplacesWholePagesUntilAMoveFails) {
    ASSERT_EQ(kxjs({"docs", "--pages", path("new")}).status, 0);
    auto const pages = filesIn(path("new"));
    for (int const move : {30, 64, 65}) {
        fs::create_directory(path("pages"));
        for (auto const& [name, page] : pages) write(path("pages") / name, "old");
        Outcome const outcome =
            runFailing("rename " + std::to_string(move), {"docs", "--pages", path("pages")});
        EXPECT_EQ(outcome.status, move == 65 ? 0 : 1) << move;
        std::ptrdiff_t replaced = 0;
        for (auto const& [name, page] : filesIn(path("pages"))) {
            bool const isNew = page == pages.at(name);
            EXPECT_TRUE(isNew || page == "old") << name;
            if (isNew) ++replaced;
        }
        EXPECT_EQ(replaced, move - 1);
        fs::remove_all(path("pages"));
    }
}

TEST_F(Docs, LeavesNoNewDirectoryWhenTheDiskFails) {
    for (char const* call : {"fsync 1", "fsync 64", "rename 1"}) {
        Outcome const outcome = runFailing(call, {"docs", "--pages", path("pages")});
        EXPECT_THAT(outcome.err, StartsWith("kxjs: cannot write " + path("pages").string()))
            << call;
        EXPECT_EQ(outcome.status, 1) << call;
        EXPECT_THAT(names(), IsEmpty()) << call;
    }
}

TEST_F(Docs, LeavesNothingWhereADirectoryCannotBeMade) {
    write(path("plain"), "text");
    for (fs::path const& target :
         {path("missing/pages"), path("plain"), path("plain/pages"), fs::path("/proc/pages")}) {
        Outcome const outcome = kxjs({"docs", "--pages", target});
        EXPECT_THAT(outcome.err, StartsWith("kxjs: cannot write " + target.string() + ": "));
        EXPECT_EQ(outcome.status, 1);
    }
    EXPECT_THAT(names(), UnorderedElementsAre("plain"));
    EXPECT_EQ(contentsOf(path("plain")), "text");
}

TEST_F(Docs, LeavesAnExistingDirectoryThatCannotBeWritten) {
    Outcome const outcome = kxjs({"docs", "--pages", "/proc"});
    EXPECT_THAT(outcome.err, StartsWith("kxjs: cannot write /proc: "));
    EXPECT_EQ(outcome.status, 1);
}

}  // namespace
