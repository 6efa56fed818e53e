// write_seeds DIRECTORY: for each fuzz target, a directory of inputs to start from, made of the
// catalogue's examples, the real formulas and the tests' scripts.
#include <cstddef>
#include <exception>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "columns/ColumnReply.h"
#include "convert/RealFormulas.h"
#include "isolated/Message.h"
#include "isolated/Protocol.h"
#include "library/Catalogues.h"
#include "library/SplitExample.h"

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLongestScript = 2000;

/// One byte a unit, as support/Units.h reads them; what has no byte becomes any from beyond ASCII.
std::string bytesOf(std::u16string_view text) {
    std::string bytes;
    for (char16_t const unit : text) {
        bytes += static_cast<char>(unit < 0x80 ? unit : 0x80U | (unit & 0xfU));
    }
    return bytes;
}

std::vector<std::string> formulas() {
    std::vector<std::string> all;
    for (std::u16string const& formula : readRealFormulas()) all.push_back(bytesOf(formula));
    for (auto const& catalogue :
         {buildMathFunctions(), buildStringFunctions(), buildMiscFunctions()}) {
        for (KxJsFunction const& function : catalogue) {
            for (std::u16string const& text : function.getExamples()) {
                if (auto const example = kx::test::splitExample(text)) {
                    all.push_back(bytesOf(example->call));
                }
            }
        }
    }
    return all;
}

/// Whether a host in process cannot end or survive the script: its first line says so.
bool isImpossible(std::string_view script) {
    return script.starts_with("// dies:") || script.starts_with("// signal:") ||
           script.starts_with("// hangs:") || script.starts_with("// isolated");
}

std::vector<std::string> scripts() {
    std::vector<std::string> all;
    for (auto const& entry : fs::recursive_directory_iterator(KXJS_TEST_SCRIPTS)) {
        fs::path const& path = entry.path();
        if (path.extension() != ".js" || entry.file_size() > kLongestScript) continue;
        std::ifstream file(path, std::ios::binary);
        std::string script{std::istreambuf_iterator<char>(file), {}};
        if (!isImpossible(script)) all.push_back(std::move(script));
    }
    return all;
}

class Seeds {
  public:
    Seeds(fs::path const& top, std::string const& target) : directory_(top / target) {
        fs::create_directories(directory_);
    }

    /// An input that concatenates these parts.
    void add(std::initializer_list<std::string_view> parts) {
        std::ofstream file(directory_ / std::to_string(count_++), std::ios::binary);
        for (std::string_view const part : parts) {
            file.write(part.data(), static_cast<std::streamsize>(part.size()));
        }
        if (!file.flush()) throw std::runtime_error("cannot write into " + directory_.string());
    }

  private:
    fs::path directory_;
    int count_ = 0;
};

void addVariables(Seeds& seeds) {
    std::vector<std::string> const keys{
        "A",           "price",    "a_b", "$",  "A B",       "1",        "a.b",
        "ouraccessor", "let",      " ",   "if", "__proto__", "toString", "Object",
        "\x83t\xe9",   "\x8e\x8f", "\n",  "'",  "*/",        "a\x1b"};
    std::vector<std::string> const values{std::string(8, '\0'),
                                          std::string("\x00\x00\x00\x00\x00\x00\xf8\x7f", 8),
                                          std::string("\x9a\x99\x99\x99\x99\x99\xb9\x3f", 8),
                                          "some text",
                                          "NaN",
                                          std::string(254, 'x') + "\x8e\x8f",
                                          std::string(300, 'y'),
                                          std::string("before\0after", 12)};
    int choices = 0;
    for (std::string const& key : keys) {
        for (std::string const& value : values) {
            std::string const head{static_cast<char>(choices++ % 0x80), '\0',
                                   static_cast<char>(key.size())};
            seeds.add({head, key, value});
        }
    }
}

void addTexts(Seeds& seeds) {
    for (std::string_view const text :
         {"a\nb\r\nc", "\r\r\n\n", "\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80", "\xed\xa0\x80",
          "\xf4\x90\x80\x80", "\xc0\xaf", "\xe2\x82", "\xef\xbb\xbf name=1"}) {
        seeds.add({"\x01", text});
        seeds.add({"\xff", text});
    }
}

void addFiles(Seeds& seeds) {
    for (std::string_view const file :
         {"NAME,PRICE\nbolt,1.5\nnut,2\n", "a;b\r\n\"x;y\";\"say \"\"no\"\"\"\r\n",
          "a,b\r1,2\r\r3,", "\xef\xbb\xbf\ta\tb\n\"two\nlines\"\t3", "\"not closed\n", "a\"b,c\n",
          "\"a\"b\n", "-12", "007", "1.5e-3", "true", "a\x1f,c\x1e\"d\"\x1f\x1f\x1e"}) {
        for (int choice = 0; choice < 8; ++choice) {
            seeds.add({std::string{static_cast<char>(choice), '\x03', '\x10'}, file});
        }
    }
}

std::string textOf(kx::MessageWriter const& writer) {
    std::string text;
    for (std::byte const byte : writer.bytes()) text += static_cast<char>(byte);
    return text;
}

/// What a worker answers, behind the number of records; 0 is the result of a command.
void addReplies(Seeds& seeds) {
    kx::CommandResult result;
    for (bool const isFailure : {false, true}) {
        result.isDone = !isFailure;
        result.text = isFailure ? u"" : u"text";
        if (isFailure) {
            result.error = u"Error in line: 1";
            result.endReason = kx::EndReason::timeLimit;
            result.failure.emplace();
            result.failure->message = u"message";
            result.failure->frames.resize(2);
        }
        kx::MessageWriter writer;
        putResult(writer, result);
        seeds.add({std::string(1, '\0'), textOf(writer)});
    }
    for (std::size_t const failures : {0, 1, 3}) {
        KxJsColumns::Outcome outcome;
        outcome.records = 5;
        for (std::size_t i = 0; i < failures; ++i) {
            outcome.failures.push_back({i, KxJsColumns::SharedText(u"failure")});
        }
        kx::MessageWriter writer;
        putColumnReply(writer, outcome, kx::EndReason::none);
        seeds.add({"\x05", textOf(writer)});
    }
}

/// Steps of a worker: turn, length, more, rest. The first is its report that it is ready.
void addChannelWords(Seeds& seeds) {
    std::string const ready{0, 2, 0, 0};
    for (char const turn : {'\0', '\1', '\2', '\3', '\xff'}) {
        for (char length = 0; length < 8; ++length) {
            for (char const more : {'\0', '\1', '\4'}) {
                std::string const step{turn, length, more, 7};
                seeds.add({ready, step, ready, step, step});
            }
        }
    }
}

/// Choices at random, two bytes each.
void addChoices(Seeds& seeds) {
    constexpr std::size_t kLength = 800;
    std::mt19937 random(1);
    for (int seed = 0; seed < 40; ++seed) {
        std::string choices;
        while (choices.size() < kLength) choices += static_cast<char>(random() & 0xFF);
        seeds.add({choices});
    }
}

/// Steps, each ended as fuzz/c_api reads them.
std::string stepsOf(std::initializer_list<std::string> steps) {
    std::string joined;
    for (std::string const& step : steps) joined += step + '\x1e';
    return joined;
}

/// Calls of the C interface on one formula: objects in the slots 0 to 8, then calls.
void addCalls(Seeds& seeds, std::string const& formula) {
    // Host, two texts, columns, list, variable, translator, findings, functions.
    std::string const objects =
        stepsOf({"H0000", "c1000", "c2000", "c3003", "c4001", "c5002A", "c6004", "c7005", "c8206"});
    seeds.add({objects, stepsOf({"i0000", "v0000A=", "k1000" + formula, "p0020" + formula, "x0122",
                                 "y1000", "l0100", "f1000", "y1000", "f0002", "r0000"})});
    seeds.add(
        {objects, stepsOf({"s4000one", "s4000two", "b3000A", "b3404T", "g3000", "o3100A+" + formula,
                           "u3120xx", "b3004B", "o3100A+B", "u3120xxxxxxxx", "u3422", "q3100",
                           "s4003", "f0002", "u3121xx", "f3004", "f4001", "q3100"})});
    seeds.add({objects,
               stepsOf({"T6000A", "T6174" + formula, "T6173" + formula, "F7100", "C8103", "V5100",
                        "v0506", "v0567=x", "D4100" + formula, "s4003", "z1201", "y1000"})});
}

void writeAll(fs::path const& top) {
    Seeds convert(top, "convert");
    Seeds run(top, "run");
    Seeds extract(top, "extract");
    Seeds columns(top, "columns");
    Seeds translate(top, "translate");
    // Steps are described where they are read; a piece of a literal ends where the next letter
    // would count as a hexadecimal digit.
    std::string const bound = "vA=5\x1evS=some text\x1e";
    std::string const convertAndRun = "c";
    for (std::string const& formula : formulas()) {
        convert.add({formula});
        translate.add({formula});
        run.add({bound, convertAndRun, formula, "\x1ex0\x1er\x1e", convertAndRun, formula});
        extract.add({std::string(1, '\0'), formula});
        columns.add({formula.substr(0, 1), std::string(1, '\0'), formula});
    }
    for (std::string const& script : scripts()) {
        run.add({bound, "j", script, "\x1ex0\x1eh\x1ejthis\x1e"});
        extract.add({"\x01", script});
        columns.add({script.substr(0, 1), "\x01", script});
    }
    Seeds calls(top, "c_api");
    for (std::string const& formula : formulas()) addCalls(calls, formula);
    Seeds variables(top, "variables");
    addVariables(variables);
    Seeds text(top, "text");
    addTexts(text);
    Seeds csv(top, "csv");
    addFiles(csv);
    Seeds channel(top, "channel");
    addChannelWords(channel);
    Seeds replies(top, "replies");
    addReplies(replies);
    Seeds native(top, "native");
    addChoices(native);
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) {
        std::cerr << "usage: write_seeds DIRECTORY\n";
        return 2;
    }
    try {
        writeAll(arguments[1]);
    } catch (std::exception const& error) {
        std::cerr << "write_seeds: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
