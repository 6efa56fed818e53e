#include "cli/io/ProgressLine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string>
#include <unistd.h>

namespace kx {
namespace {

constexpr std::chrono::milliseconds kBetween{100};
constexpr int kBarWidth = 20;

std::string formatted(char const* format, auto... values) {
    std::array<char, 64> buffer;
    int const size = std::snprintf(buffer.data(), buffer.size(), format, values...);
    return {buffer.data(), static_cast<std::size_t>(std::max(size, 0))};
}

std::string bar(double share) {
    int const full = static_cast<int>(share * kBarWidth);
    return "[" + std::string(static_cast<std::size_t>(full), '#') +
           std::string(static_cast<std::size_t>(kBarWidth - full), '.') + "] " +
           formatted("%3.0f%%  ", share * 100);
}

}  // namespace

ProgressLine::ProgressLine(std::size_t total)
    : isTerminal_(::isatty(STDERR_FILENO) == 1), total_(total) {}

ProgressLine::~ProgressLine() { clear(); }

void ProgressLine::show(std::size_t records, std::size_t bytes) {
    if (!isTerminal_) return;
    Clock::time_point const now = Clock::now();
    if (now < next_) return;
    next_ = now + kBetween;
    double const seconds = std::chrono::duration<double>(now - start_).count();
    std::string line = "\r";
    if (total_ > 0) {
        line += bar(std::min(1.0, static_cast<double>(bytes) / static_cast<double>(total_)));
    }
    line += formatted("%zu records", records);
    if (seconds > 0) line += formatted(", %.0f/s", static_cast<double>(records) / seconds);
    if (total_ > 0 && bytes > 0) {
        double const rest = bytes >= total_ ? 0 : static_cast<double>(total_ - bytes);
        auto const left = std::lround(seconds * rest / static_cast<double>(bytes));
        line += formatted(", %ld:%02ld left", left / 60, left % 60);
    }
    line += "\x1b[K";
    static_cast<void>(std::fwrite(line.data(), 1, line.size(), stderr));
    static_cast<void>(std::fflush(stderr));
    isShown_ = true;
}

void ProgressLine::clear() {
    if (!isShown_) return;
    static_cast<void>(std::fputs("\r\x1b[K", stderr));
    static_cast<void>(std::fflush(stderr));
    isShown_ = false;
}

}  // namespace kx
