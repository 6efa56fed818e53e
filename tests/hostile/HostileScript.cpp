#include "HostileScript.h"

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "support/EngineWords.h"

namespace {

// The standard library reads UTF-8 as a path.
std::u16string decoded(std::string const& utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end())).u16string();
}

/// A directive's text with its escapes replaced.
std::u16string unescaped(std::string const& written) {
    std::u16string const text = decoded(written);
    std::u16string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != u'\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        switch (text[++i]) {
            case u'n':
                result += u'\n';
                break;
            case u't':
                result += u'\t';
                break;
            case u'u': {
                std::u16string const digits = text.substr(i + 1, 4);
                result += static_cast<char16_t>(
                    std::stoi(std::string(digits.begin(), digits.end()), nullptr, 16));
                i += 4;
                break;
            }
            default:
                result += text[i];
        }
    }
    return result;
}

/// The text between the first and the last apostrophe.
std::u16string quoted(std::string const& text) {
    auto const first = text.find('\'');
    auto const last = text.rfind('\'');
    if (first == last) throw std::runtime_error("no text in apostrophes: " + text);
    return unescaped(text.substr(first + 1, last - first - 1));
}

KxJsVariable variableOf(std::string const& assignment) {
    auto const equals = assignment.find('=');
    if (equals == std::string::npos) throw std::runtime_error("no variable: " + assignment);
    std::u16string const name = decoded(assignment.substr(0, equals));
    std::string const value = assignment.substr(equals + 1);
    if (value.starts_with('\'')) return {name, quoted(value)};
    return {name, static_cast<std::int32_t>(std::stol(value))};
}

void generate(std::u16string& source, std::string const& what) {
    std::u16string const piece = quoted(what);
    for (auto count = std::stoul(what); count > 0; --count) source += piece;
}

std::vector<std::string> words(std::string const& text) {
    std::istringstream stream(text);
    std::vector<std::string> found;
    for (std::string word; stream >> word;) {
        if (word != "reset" && word != "run") throw std::runtime_error("cannot " + word);
        found.push_back(word);
    }
    return found;
}

constexpr std::string_view kSince = "// since V8 ";

bool isSince(std::string const& version) {
    std::size_t dot = 0;
    int const major = std::stoi(version, &dot);
    return isSinceV8(major, std::stoi(version.substr(dot + 1)));
}

void forgetTheEnd(HostileScript& script) {
    script.result.reset();
    script.beginOfResult.reset();
    script.error.reset();
    script.lastWords.clear();
    script.signal.clear();
    script.hangsFor = {};
    script.isForIsolatedHosts = false;
}

/// Reads `line` into `script`. Returns whether it is a directive.
bool obey(HostileScript& script, std::string const& line) {
    auto const colon = line.find(": ");
    std::string const name = line.substr(0, colon);
    std::string const value = colon == std::string::npos ? "" : line.substr(colon + 2);
    if (name == "// limit") {
        script.timeLimit = std::chrono::milliseconds(std::stol(value));
    } else if (name == "// memory") {
        script.memoryLimit = std::stoul(value) << 20;
    } else if (name == "// variable") {
        script.variables.push_back(variableOf(value));
    } else if (name == "// convert") {
        script.isConverted = true;
    } else if (name == "// generate") {
        generate(script.source, value);
    } else if (name == "// then") {
        script.then = words(value);
    } else if (name == "// expect") {
        script.result = unescaped(value);
    } else if (name == "// begins") {
        script.beginOfResult = unescaped(value);
    } else if (name == "// error") {
        script.error = unescaped(value);
    } else if (name == "// next" && value == "fresh") {
        script.spoilsItsHost = true;
    } else if (name == "// dies") {
        script.lastWords = value;
    } else if (name == "// signal") {
        script.signal = value;
    } else if (name == "// isolated") {
        script.isForIsolatedHosts = true;
    } else if (name == "// hangs") {
        script.hangsFor = std::chrono::milliseconds(std::stol(value));
    } else if (name.starts_with(kSince)) {
        if (!isSince(name.substr(kSince.size()))) return true;
        forgetTheEnd(script);
        return obey(script, "// " + value);
    } else {
        return false;
    }
    return true;
}

}  // namespace

HostileScript readHostileScript(std::filesystem::path const& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path.string());
    HostileScript script;
    std::string body;
    bool isInDirectives = true;
    for (std::string line; std::getline(file, line);) {
        if (isInDirectives && line.starts_with("// ")) {
            if (!obey(script, line)) throw std::runtime_error("no directive: " + line);
            continue;
        }
        isInDirectives = false;
        body += line + '\n';
    }
    script.source += decoded(body);
    if (!script.result && !script.beginOfResult && !script.error) {
        throw std::runtime_error("nothing is expected");
    }
    return script;
}
