#pragma once

#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "cases/Cases.h"

namespace bench {

/// The measurements: for a row and a peer, the nanoseconds of one piece of work in every round.
class Figures {
  public:
    void add(std::string const& row, std::string const& peer, double nanoseconds);
    /// Of all rounds; 0 where nothing was measured. What else the machine does only adds time.
    double best(std::string const& row, std::string const& peer) const;

  private:
    std::map<std::pair<std::string, std::string>, std::vector<double>> rounds_;
};

/// For each peer that is not in the table, why.
using Absences = std::map<std::string, std::string>;

/// Prints the rows that have figures as a Markdown table: raw V8's time and the library's, the
/// library's ratio and its goal, then the other peers' ratios to raw V8; to the library where raw
/// V8 cannot do the work.
void printTable(std::ostream& out, std::vector<Case> const& cases,
                std::vector<std::string> const& peers, Figures const& figures,
                Absences const& absences);

/// A time with its unit and three digits: "431 ns", "8.02 us".
std::string timeText(double nanoseconds);

}  // namespace bench
