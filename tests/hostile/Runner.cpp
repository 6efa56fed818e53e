// Runs hostile scripts. The process must survive each, its result must be the expected one, and
// ordinary formulas must work afterwards.
//
//     hostile PATH...
//
// A path is a script or a directory of scripts. In process, a script that is known to end the
// process, or never to end, must do so as it is known to. The exit status is 0, 1 where something
// was not as expected, 2 for a file that cannot be understood, and 77 where V8 survives a script
// now that it is known not to survive. The last lines name the scripts that this is about.
#include <algorithm>
#include <exception>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "HostileScript.h"
#include "Trial.h"
#include "support/HostKind.h"

namespace {

constexpr int kSurvivedUnexpectedly = 77;

struct Case {
    explicit Case(std::filesystem::path path) : file(std::move(path)) {
        try {
            script = readHostileScript(file);
        } catch (std::exception const& error) {
            throw std::runtime_error(file.string() + ": " + error.what());
        }
    }

    std::filesystem::path file;
    HostileScript script;
};

std::vector<Case> casesIn(std::filesystem::path const& path) {
    if (!std::filesystem::is_directory(path)) return {Case(path)};
    std::vector<Case> cases;
    for (auto const& entry : std::filesystem::recursive_directory_iterator(path)) {
        if (entry.path().extension() == ".js") cases.emplace_back(entry.path());
    }
    if (cases.empty()) throw std::runtime_error("no scripts in " + path.string());
    std::ranges::sort(cases, {}, &Case::file);
    if (!areHostsIsolated()) {
        std::erase_if(cases, [](Case const& test) { return test.script.isForIsolatedHosts; });
    }
    return cases;
}

/// In process, a thread has an isolate of its own, so what one script keeps in use does not change
/// the next.
bool survivesAlone(HostileScript const& script) {
    if (areHostsIsolated()) return survives(script);
    bool result = false;
    std::thread([&] { result = survives(script); }).join();
    return result;
}

struct Outcome {
    std::vector<std::string> failures;
    std::vector<std::string> unexpectedSurvivals;
};

void run(Case const& test, Outcome& outcome) {
    std::string const name = test.file.string();
    std::cout << name << std::endl;  // The last line if the process ends here.
    // An isolated host has a text for everything.
    bool const isHopeless = test.script.isHopeless() && !areHostsIsolated();
    End const expected = isHopeless ? End::asExpected : End::survived;
    End const end = isHopeless                   ? endOf(test.script)
                    : survivesAlone(test.script) ? End::survived
                                                 : End::otherwise;
    if (end == expected) return;
    (end == End::survived ? outcome.unexpectedSurvivals : outcome.failures).push_back(name);
}

int test(std::vector<Case> cases) {
    // The hopeless scripts run in forked children. A fork is possible only until V8 has started.
    std::stable_partition(cases.begin(), cases.end(),
                          [](Case const& test) { return test.script.isHopeless(); });
    Outcome outcome;
    for (Case const& test : cases) run(test, outcome);
    for (std::string const& name : outcome.unexpectedSurvivals) {
        std::cout << "V8 survives " << name
                  << " now: change its directives, and take it off the table in SECURITY.md\n";
    }
    for (std::string const& name : outcome.failures) std::cout << "FAILED: " << name << '\n';
    std::cout << cases.size() << " scripts, " << outcome.failures.size() << " failed\n";
    if (!outcome.failures.empty()) return 1;
    return outcome.unexpectedSurvivals.empty() ? 0 : kSurvivedUnexpectedly;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount < 2) {
        std::cerr << "usage: hostile PATH...\n";
        return 2;
    }
    std::vector<Case> cases;
    try {
        for (int i = 1; i < argumentCount; ++i) {
            auto found = casesIn(arguments[i]);
            std::ranges::move(found, std::back_inserter(cases));
        }
        return test(std::move(cases));
    } catch (std::exception const& error) {
        std::cerr << error.what() << '\n';
        return 2;
    }
}
