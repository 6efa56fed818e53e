// Runs tests/scripts/*.js: one case a line, the expectation beside the code.
//
//     SOURCE  // expect: TEXT          the result is TEXT
//     SOURCE  // expect error: TEXT    the run fails and its error text contains TEXT
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

#include "ScriptHost.h"
#include "support/EngineWords.h"

namespace {

std::u16string fromUtf8(std::string const& text) {
    std::u16string result;
    for (std::size_t i = 0; i < text.size();) {
        auto const lead = static_cast<unsigned char>(text[i++]);
        int const followers = lead < 0x80 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
        char32_t point = followers == 0 ? lead : lead & (0x3F >> followers);
        for (int k = 0; k < followers; ++k) {
            point = point << 6 | (static_cast<unsigned char>(text[i++]) & 0x3F);
        }
        if (point < 0x10000) {
            result += static_cast<char16_t>(point);
        } else {
            result += static_cast<char16_t>(0xD7C0 + (point >> 10));
            result += static_cast<char16_t>(0xDC00 + (point & 0x3FF));
        }
    }
    return result;
}

void checkLine(std::string const& place, std::string const& line) {
    static std::string const kExpect = "// expect: ";
    static std::string const kExpectError = "// expect error: ";
    SCOPED_TRACE(place + ": " + line);
    ScriptHost host;
    if (auto const at = line.rfind(kExpectError); at != std::string::npos) {
        ScriptHost::Run const run = host.run(fromUtf8(line.substr(0, at)));
        EXPECT_EQ(run.result, u"");
        EXPECT_NE(run.error.find(fromUtf8(line.substr(at + kExpectError.size()))),
                  std::u16string::npos)
            << testing::PrintToString(run);
        return;
    }
    auto const at = line.rfind(kExpect);
    ASSERT_NE(at, std::string::npos) << "no expectation";
    EXPECT_EQ(host.eval(fromUtf8(line.substr(0, at))),
              fromEnginesMath(fromUtf8(line.substr(at + kExpect.size()))));
}

class ScriptFile : public testing::TestWithParam<std::string> {};

TEST_P(ScriptFile, behavesAsExpected) {
    std::ifstream file(std::string(KXJS_TEST_SCRIPTS) + "/" + GetParam() + ".js");
    ASSERT_TRUE(file) << "cannot be read";
    int number = 0;
    for (std::string line; std::getline(file, line);) {
        ++number;
        if (!line.empty()) checkLine(GetParam() + ".js:" + std::to_string(number), line);
    }
    EXPECT_GT(number, 0);
}

INSTANTIATE_TEST_SUITE_P(files, ScriptFile,
                         testing::Values("mathematical", "strings", "miscellaneous"),
                         [](auto const& info) { return info.param; });

TEST(ScriptFiles, areAllRun) {
    int files = 0;
    for (auto const& entry : std::filesystem::directory_iterator(KXJS_TEST_SCRIPTS)) {
        files += entry.path().extension() == ".js";
    }
    EXPECT_EQ(files, 3);
}

}  // namespace
