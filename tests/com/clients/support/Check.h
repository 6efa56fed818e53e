#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>
#include <windows.h>

// Checks for the programs that test the automation server from outside. GoogleTest is not
// packaged for mingw; these few lines are what is needed of it.
//
//     void countsRise() { CHECK_EQUAL(2, 1 + 1); }
//     int main() { return test::runCases({{"counts rise", countsRise}}); }

namespace test {

struct Case {
    char const* name;
    void (*run)();
};

/// Runs the cases, prints a line for each, and returns the exit status: 0 if no check failed and
/// no case was without checks.
int runCases(std::initializer_list<Case> cases);

/// Counts a check. Thread-safe.
void report(bool passed, char const* file, int line, std::string const& text);

std::string show(std::wstring const& text);
std::string show(wchar_t const* text);
std::string show(std::string const& text);
std::string show(char const* text);
std::string show(bool value);
std::string show(double value);
std::string show(void const* pointer);
std::string showNumber(long long value);
template <class Number>
requires std::is_integral_v<Number> || std::is_enum_v<Number> std::string show(Number value) {
    return showNumber(static_cast<long long>(value));
}
template <class Element>
std::string show(std::vector<Element> const& elements) {
    std::string text = "[";
    for (Element const& element : elements) text += (text.size() > 1 ? ", " : "") + show(element);
    return text + "]";
}

template <class Expected, class Actual>
void checkEqual(Expected const& expected, Actual const& actual, char const* file, int line,
                char const* expression) {
    bool passed = false;
    if constexpr (std::is_integral_v<Expected> && std::is_integral_v<Actual>) {
        passed = static_cast<long long>(expected) == static_cast<long long>(actual);
    } else {
        passed = expected == actual;
    }
    report(passed, file, line,
           std::string(expression) + ": expected " + show(expected) + ", got " + show(actual));
}

}  // namespace test

#define CHECK(condition) \
    ::test::report(static_cast<bool>(condition), __FILE__, __LINE__, #condition)
#define CHECK_EQUAL(expected, actual) \
    ::test::checkEqual((expected), (actual), __FILE__, __LINE__, #actual)
