#include "Table.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace bench {

namespace {

std::string const kLibrary = "library";
std::string const kRaw = "raw V8";

std::string formatted(char const* format, double number) {
    std::array<char, 32> text;
    std::snprintf(text.data(), text.size(), format, number);
    return text.data();
}

/// Three digits.
std::string digits(double number) {
    if (number >= 99.95) return formatted("%.0f", number);
    return formatted(number >= 9.995 ? "%.1f" : "%.2f", number);
}

std::string ratioText(double time, double reference) {
    if (time == 0 || reference == 0) return "-";
    return digits(time / reference) + " x";
}

std::string verdict(bool isMet) { return isMet ? ", met" : ", missed"; }

std::string goalText(Case const& row, Figures const& figures) {
    double const library = figures.best(row.title, kLibrary);
    if (row.goalNanoseconds != 0) {
        return "<= " + timeText(row.goalNanoseconds) + verdict(library <= row.goalNanoseconds);
    }
    double const half = figures.best(row.twiceOf, kLibrary);
    if (half != 0) {
        constexpr double kLinear = 2.2;
        return "<= 2.2 x its half, is " + ratioText(library, half) +
               verdict(library <= kLinear * half);
    }
    double const raw = figures.best(row.title, kRaw);
    if (row.goal == 0 || raw == 0) return "";
    return "<= " + formatted("%.2f", row.goal) + " x" + verdict(library / raw <= row.goal);
}

using Row = std::vector<std::string>;

void printRows(std::ostream& out, std::vector<Row> const& rows) {
    std::vector<std::size_t> widths(rows.front().size(), 0);
    for (Row const& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
    }
    auto const printRow = [&](Row const& row) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            out << "| " << row[i] << std::string(widths[i] - row[i].size() + 1, ' ');
        }
        out << "|\n";
    };
    printRow(rows.front());
    for (std::size_t const width : widths) out << "|" << std::string(width + 2, '-');
    out << "|\n";
    std::for_each(rows.begin() + 1, rows.end(), printRow);
}

}  // namespace

void Figures::add(std::string const& row, std::string const& peer, double nanoseconds) {
    rounds_[{row, peer}].push_back(nanoseconds);
}

double Figures::best(std::string const& row, std::string const& peer) const {
    auto const found = rounds_.find({row, peer});
    if (found == rounds_.end()) return 0;
    return *std::min_element(found->second.begin(), found->second.end());
}

std::string timeText(double nanoseconds) {
    if (nanoseconds == 0) return "-";
    if (nanoseconds < 999.5) return digits(nanoseconds) + " ns";
    if (nanoseconds < 999.5e3) return digits(nanoseconds / 1e3) + " us";
    return digits(nanoseconds / 1e6) + " ms";
}

void printTable(std::ostream& out, std::vector<Case> const& cases,
                std::vector<std::string> const& peers, Figures const& figures,
                Absences const& absences) {
    std::vector<Row> rows{{"work", kRaw, kLibrary, "ratio", "goal"}};
    std::vector<std::string> others;
    for (std::string const& peer : peers) {
        if (peer != kRaw && peer != kLibrary) others.push_back(peer);
    }
    rows.front().insert(rows.front().end(), others.begin(), others.end());
    for (Case const& row : cases) {
        double const library = figures.best(row.title, kLibrary);
        double const raw = figures.best(row.title, kRaw);
        if (library == 0 && raw == 0) continue;
        rows.push_back({row.title, timeText(raw), timeText(library), ratioText(library, raw),
                        goalText(row, figures)});
        for (std::string const& peer : others) {
            bool const isAbsent = absences.contains(peer);
            // Rows without raw V8 are relative to the library.
            rows.back().push_back(
                isAbsent ? "not installed"
                         : ratioText(figures.best(row.title, peer), raw != 0 ? raw : library));
        }
    }
    printRows(out, rows);
    for (auto const& [peer, reason] : absences) out << "\n" << peer << ": " << reason;
    if (!absences.empty()) out << "\n";
}

}  // namespace bench
