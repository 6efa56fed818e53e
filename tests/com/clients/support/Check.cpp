#include "Check.h"

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <sstream>

namespace test {

namespace {

std::atomic<int> checks{0};
std::atomic<int> failures{0};
SRWLOCK output = SRWLOCK_INIT;  // the compiler may come without std::mutex

/// Runs one case and says whether it passed.
bool runCase(Case const& next) {
    int const checksBefore = checks;
    int const failuresBefore = failures;
    std::printf("      %s\n", next.name);
    std::fflush(stdout);
    try {
        next.run();
    } catch (std::exception const& failure) {
        report(false, next.name, 0, failure.what());
    }
    if (checks == checksBefore) report(false, next.name, 0, "the case checked nothing");
    bool const passed = failures == failuresBefore;
    std::printf("%s  %s\n", passed ? "ok  " : "FAIL", next.name);
    std::fflush(stdout);
    return passed;
}

}  // namespace

int runCases(std::initializer_list<Case> cases) {
    int failed = 0;
    for (Case const& next : cases) failed += runCase(next) ? 0 : 1;
    std::printf("%d cases, %d failed, %d checks\n", static_cast<int>(cases.size()), failed,
                checks.load());
    std::fflush(stdout);
    return failed == 0 && cases.size() != 0 ? 0 : 1;
}

void report(bool passed, char const* file, int line, std::string const& text) {
    ++checks;
    if (passed) return;
    ++failures;
    AcquireSRWLockExclusive(&output);
    std::printf("      %s:%d: %s\n", file, line, text.c_str());
    std::fflush(stdout);
    ReleaseSRWLockExclusive(&output);
}

std::string show(std::wstring const& text) {
    int const length = static_cast<int>(text.size());
    int const size =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(), size, nullptr, nullptr);
    return "\"" + narrow + "\"";
}

std::string show(wchar_t const* text) { return show(std::wstring(text)); }
std::string show(std::string const& text) { return text; }
std::string show(char const* text) { return text; }
std::string show(bool value) { return value ? "true" : "false"; }
std::string show(double value) { return std::to_string(value); }

std::string show(void const* pointer) {
    return pointer == nullptr ? "null" : showNumber(reinterpret_cast<long long>(pointer));
}

std::string showNumber(long long value) {
    std::string decimal = std::to_string(value);
    if (value >= -1000) return decimal;
    std::ostringstream hexadecimal;  // results of calls are known by it
    hexadecimal << std::hex << static_cast<std::uint32_t>(value);
    return decimal + " (0x" + hexadecimal.str() + ")";
}

}  // namespace test
