// Measures one formula over whole columns: the library's columns beside its execution one by one
// and other engines' ways, in nanoseconds a record. Before anything is timed, all must have given
// the same results.
//
//     kxbench_columns [ROUNDS]      a whole number from 1; 11 without
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "Machine.h"
#include "Peer.h"
#include "columns/ColumnPeer.h"

namespace {

using namespace bench;
constexpr std::array<std::size_t, 3> kSizes = {1, 1000, 1000000};
/// The least number of records in one stretch, so that it is longer than the clock's step.
constexpr std::size_t kLeastRecords = 20000;

std::vector<ColumnFormula> const kFormulas = {
    {"A*1.2+B/3", "A*1.2+B/3", "A*1.2+B/3", "A*1.2+B/3"},
    {"IIF(A>B,A,B)", "IIF(A>B,A,B)", "A>B ? A : B", "A>B and A or B"},
    {"LEFT(NAME,6)+'-'+LEN(NAME)", "LEFT(NAME,6)+'-'+LEN(NAME)", "", "NAME:sub(1,6)..'-'..#NAME",
     true},
    {"UPPERCASE(ALLTRIM(NAME))+'-'+LEFT(NAME,3)", "UPPERCASE(ALLTRIM(NAME))+'-'+LEFT(NAME,3)", "",
     "NAME:match('^%s*(.-)%s*$'):upper()..'-'..NAME:sub(1,3)", true},
};

struct ColumnPeer {
    char const* name;
    ColumnWork (*make)(ColumnFormula const&, ColumnData&);
};

std::vector<ColumnPeer> const kPeers = {
    {"columns", columnsOfLibrary},
    {"one by one", oneByOneOfLibrary},
#ifdef KXJS_HAS_MUPARSER
    {"muParser bulk", columnsOfMuParser},
#endif
#ifdef KXJS_HAS_LUAJIT
    {"LuaJIT", columnsOfLuaJit},
#endif
};

ColumnData dataOf(std::size_t count) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> numbers(-1000, 1000);
    ColumnData data;
    for (std::size_t i = 0; i < count; ++i) {
        data.a.push_back(numbers(random));
        data.b.push_back(numbers(random));
        data.names.push_back("  item " + std::to_string(i) + " ");
        data.wideNames.emplace_back(data.names.back().begin(), data.names.back().end());
    }
    data.numbers.resize(count);
    data.texts.resize(count);
    data.wideTexts.resize(count);
    return data;
}

void checkAgreement(ColumnFormula const& formula, char const* peer, ColumnData& data,
                    std::vector<double> const& numbers, std::vector<std::string>& texts) {
    if (formula.isText && data.texts[0].empty()) {
        for (std::size_t i = 0; i < texts.size(); ++i) {
            data.texts[i].assign(data.wideTexts[i].begin(), data.wideTexts[i].end());
        }
    }
    if (texts[0].empty()) texts = data.texts;
    bool const agrees = formula.isText ? texts == data.texts : numbers == data.numbers;
    if (!agrees) throw std::runtime_error(formula.title + ": " + peer + " gives other results");
}

double nanosecondsPerRecord(ColumnWork const& work, std::size_t count) {
    std::size_t const calls = std::max<std::size_t>(1, kLeastRecords / count);
    Nanoseconds const time = timed([&] {
        for (std::size_t i = 0; i < calls; ++i) work();
    });
    return static_cast<double>(time.count()) / static_cast<double>(calls * count);
}

void measure(ColumnFormula const& formula, std::size_t count, int rounds) {
    std::vector<ColumnWork> works;
    std::vector<ColumnData> data(kPeers.size(), dataOf(count));
    for (std::size_t i = 0; i < kPeers.size(); ++i) {
        works.push_back(kPeers[i].make(formula, data[i]));
        if (works[i]) works[i]();
    }
    std::vector<std::string> texts(count);
    for (std::size_t i = 0; i < kPeers.size(); ++i) {
        if (works[i]) checkAgreement(formula, kPeers[i].name, data[i], data[0].numbers, texts);
    }
    std::vector<std::vector<double>> times(kPeers.size());
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < kPeers.size(); ++i) {
            if (works[i]) times[i].push_back(nanosecondsPerRecord(works[i], count));
        }
    }
    std::printf("| `%s` | %zu |", formula.title.c_str(), count);
    for (auto const& of : times) {
        of.empty() ? std::printf(" |")
                   : std::printf(" %.1f |", *std::min_element(of.begin(), of.end()));
    }
    std::printf("\n");
    std::fflush(stdout);
}

/// Nothing if the argument is no number of rounds.
std::optional<int> roundsFrom(int count, char** arguments) {
    if (count < 2) return 11;
    std::string_view const text = arguments[1];
    int rounds = 0;
    auto const end = std::from_chars(text.data(), text.data() + text.size(), rounds);
    bool const isNumber = end.ec == std::errc() && end.ptr == text.data() + text.size();
    if (count > 2 || !isNumber || rounds < 1) return std::nullopt;
    return rounds;
}

}  // namespace

int main(int count, char** arguments) {
    try {
        auto const asked = roundsFrom(count, arguments);
        if (!asked) {
            std::cerr << "kxbench_columns: the one argument is the number of rounds, from 1"
                      << std::endl;
            return 2;
        }
        int const rounds = *asked;
        std::cout << bench::describeMachine() << "rounds:   " << rounds
                  << "; the best of each, in processor time: nanoseconds a record\n\n| formula | "
                     "records |";
        for (ColumnPeer const& peer : kPeers) std::cout << " " << peer.name << " |";
        std::cout << "\n|---|--:|";
        for ([[maybe_unused]] ColumnPeer const& peer : kPeers) std::cout << "--:|";
        std::cout << std::endl;
        for (ColumnFormula const& formula : kFormulas) {
            for (std::size_t const size : kSizes) measure(formula, size, rounds);
        }
        return 0;
    } catch (std::exception const& failure) {
        std::cerr << "kxbench_columns: " << failure.what() << std::endl;
        return 1;
    }
}
