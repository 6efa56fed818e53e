// Runs one hostile script in a process of its own: the process must live, the answer must be a
// text, and the next formula must work.
//
//     hostile FILE
//
// A first line "// time: N" sets a time limit of N milliseconds. The host is reset between the
// script and the next formula when the line "// reset" is there, and the script is run again after
// the reset when it is "// reset and run".
#include <chrono>
#include <fstream>
#include <iostream>
#include <string>

#include "host/KxJsParser.h"

namespace {

std::string printable(std::u16string const& text) {
    std::string result;
    for (char16_t const unit : text.substr(0, 300)) {
        result += unit >= 0x20 && unit < 0x7F ? static_cast<char>(unit) : '.';
    }
    return result;
}

bool run(KxJsParser& host, std::u16string const& source) {
    std::u16string error;
    std::int32_t const index = host.parse(source, error);
    std::u16string const result = index == -1 ? u"" : host.execute(index, error);
    std::cout << "result: " << printable(result) << "\nerror: " << printable(error) << std::endl;
    return !result.empty() || !error.empty();
}

bool isNextFormulaRight(KxJsParser& host) {
    host.addSetVariable(KxJsVariable(u"NEXT", u"abc"));
    std::u16string error;
    std::int32_t const index = host.parse(u"1+1", error);
    return index != -1 && host.execute(index, error) == u"2" && error.empty();
}

}  // namespace

int main(int argumentCount, char** arguments) {
    std::ifstream file(argumentCount == 2 ? arguments[1] : "");
    if (!file) {
        std::cerr << "usage: hostile FILE\n";
        return 2;
    }
    KxJsParser host;
    host.initialize();
    host.addSetVariable(KxJsVariable(u"A", 5));
    host.addSetVariable(KxJsVariable(u"S", u"text"));
    bool isReset = false;
    bool isRunAgain = false;
    std::u16string source;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("// time: ")) {
            host.setTimeLimit(std::chrono::milliseconds(std::stol(line.substr(9))));
        } else if (line.starts_with("// reset")) {
            isReset = true;
            isRunAgain = line == "// reset and run";
        }
        source.append(line.begin(), line.end());
        source += u'\n';
    }
    bool isAnswered = run(host, source);
    if (isReset) host.reset();
    if (isRunAgain) isAnswered = run(host, source) && isAnswered;
    bool const worksOn = isNextFormulaRight(host);
    std::cout << (worksOn ? "works on" : "does not work on") << std::endl;
    return isAnswered && worksOn ? 0 : 1;
}
