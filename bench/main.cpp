// Measures the library beside raw V8 and other engines, and prints one table of ratios.
//
//     kxbench [--quick] [--filter TEXT] [--peer NAME]... [--rounds N]
//
// Every round measures every row for every peer, in random order, so that a machine that gets
// slower or faster meanwhile does so for all; the table shows the best of the rounds. Before
// anything is timed, all peers must have given the same results. --filter takes the rows whose
// titles contain the text, --peer the named peers only.
#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <iostream>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Machine.h"
#include "Table.h"
#include "cases/Cases.h"
#include "peers/Peers.h"

namespace {

struct Options {
    int rounds = 15;
    double secondsPerRound = 0.1;
    std::string filter;
    std::vector<std::string> peers;  // all where none is named

    bool wants(std::string const& peer) const {
        return peers.empty() || std::find(peers.begin(), peers.end(), peer) != peers.end();
    }
};

/// A row for one peer.
struct Measurement {
    bench::Case const* row;
    std::string peerName;
    std::unique_ptr<bench::Peer> peer;
};

class Collector final : public benchmark::BenchmarkReporter {
  public:
    explicit Collector(std::map<std::string, Measurement*> measurements)
        : measurements_(std::move(measurements)) {}

    bool ReportContext(Context const&) override { return true; }

    void ReportRuns(std::vector<Run> const& runs) override {
        for (Run const& run : runs) {
            if (run.run_type != Run::RT_Iteration) continue;
            if (run.iterations == 0) {
                throw std::runtime_error(run.benchmark_name() + " was not measured");
            }
            Measurement const& of = *measurements_.at(run.run_name.function_name);
            double const pieces =
                static_cast<double>(run.iterations) * static_cast<double>(of.row->batch);
            figures_.add(of.row->title, of.peerName, run.real_accumulated_time * 1e9 / pieces);
        }
    }

    bench::Figures const& figures() const { return figures_; }

  private:
    std::map<std::string, Measurement*> measurements_;
    bench::Figures figures_;
};

void measure(benchmark::State& state, Measurement& measurement) {
    // No number is used twice for a formula, not even in another row: engines cache what they
    // compiled. Every peer counts by itself.
    static std::map<std::pair<std::string, std::string>, std::uint64_t> used;
    std::pair const key{measurement.peerName, measurement.row->formula.javaScript};
    std::uint64_t& next = used.try_emplace(key, 1000).first->second;
    std::uint64_t const batch = measurement.row->batch;
    for ([[maybe_unused]] auto const& iteration : state) {
        auto const time = measurement.row->work(*measurement.peer, next, batch);
        next += batch;
        state.SetIterationTime(std::chrono::duration<double>(time).count());
    }
}

/// The measurements of all rows, each made ready; throws where peers disagree.
std::vector<Measurement> prepare(std::vector<bench::Case> const& cases, Options const& options) {
    std::vector<Measurement> measurements;
    for (bench::Case const& row : cases) {
        if (row.title.find(options.filter) == std::string::npos) continue;
        std::string agreed;
        for (bench::PeerEntry const& entry : bench::allPeers()) {
            if (!options.wants(entry.name)) continue;
            std::unique_ptr<bench::Peer> peer = entry.make == nullptr ? nullptr : entry.make();
            if (peer == nullptr || !peer->can(row.task, row.formula)) continue;
            row.prepare(*peer);
            std::string const results = row.results(*peer);
            if (agreed.empty()) agreed = results;
            if (results != agreed) {
                std::string message = row.title + ": ";
                message.append(entry.name).append(" gives \"").append(results);
                message.append("\" instead of \"").append(agreed).append("\"");
                throw std::runtime_error(message);
            }
            measurements.push_back({&row, entry.name, std::move(peer)});
        }
    }
    return measurements;
}

bench::Figures run(std::vector<Measurement>& measurements, Options const& options) {
    std::map<std::string, Measurement*> byName;
    for (Measurement& measurement : measurements) {
        std::string const name = measurement.row->title + "/" + measurement.peerName;
        byName[name] = &measurement;
        benchmark::RegisterBenchmark(
            name.c_str(), [&measurement](benchmark::State& state) { measure(state, measurement); })
            ->UseManualTime()
            ->MinTime(options.secondsPerRound)
            ->Repetitions(options.rounds);
    }
    Collector collector(std::move(byName));
    benchmark::RunSpecifiedBenchmarks(&collector);
    return collector.figures();
}

Options readOptions(int count, char** arguments) {
    Options options;
    for (int i = 1; i < count; ++i) {
        std::string_view const argument = arguments[i];
        if (argument == "--quick") {
            options.rounds = 5;
            options.secondsPerRound = 0.02;
        } else if (argument == "--filter" && i + 1 < count) {
            options.filter = arguments[++i];
        } else if (argument == "--peer" && i + 1 < count) {
            options.peers.emplace_back(arguments[++i]);
        } else if (argument == "--rounds" && i + 1 < count) {
            options.rounds = std::stoi(arguments[++i]);
        } else {
            throw std::invalid_argument(
                "usage: kxbench [--quick] [--filter TEXT] [--peer NAME]... [--rounds N]");
        }
    }
    return options;
}

void initializeBenchmark(char* program) {
    std::string interleave = "--benchmark_enable_random_interleaving=true";
    std::array<char*, 3> arguments = {program, interleave.data(), nullptr};
    int count = 2;
    benchmark::Initialize(&count, arguments.data());
}

void printHead(int count, char** arguments, Options const& options) {
    std::cout << "command: ";
    for (int i = 0; i < count; ++i) std::cout << " " << arguments[i];
    std::cout << "\n"
              << bench::describeMachine() << "rounds:   " << options.rounds << ", of "
              << options.secondsPerRound << " s for each row and peer; the best of them\npeers:   ";
    char const* separator = " ";
    for (bench::PeerEntry const& entry : bench::allPeers()) {
        std::unique_ptr<bench::Peer> const peer = entry.make == nullptr ? nullptr : entry.make();
        if (peer == nullptr) continue;
        std::cout << separator << entry.name << " " << peer->version();
        separator = ", ";
    }
    std::cout << "\n" << std::endl;
}

int runAll(int count, char** arguments) {
    Options const options = readOptions(count, arguments);
    printHead(count, arguments, options);
    initializeBenchmark(arguments[0]);
    std::vector<bench::Case> const cases = bench::allCases();
    std::vector<Measurement> measurements = prepare(cases, options);
    bench::Figures const figures = run(measurements, options);

    std::vector<std::string> peers;
    bench::Absences absences;
    for (bench::PeerEntry const& entry : bench::allPeers()) {
        if (!options.wants(entry.name)) continue;
        peers.push_back(entry.name);
        if (entry.make == nullptr || entry.make() == nullptr) {
            absences[entry.name] = "not installed (" + entry.package + ")";
        }
    }
    bench::printTable(std::cout, cases, peers, figures, absences);
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    try {
        return runAll(count, arguments);
    } catch (std::exception const& failure) {
        std::cerr << "kxbench: " << failure.what() << std::endl;
        return 1;
    }
}
