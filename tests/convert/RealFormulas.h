#pragma once

#include <string>
#include <vector>

/// The expressions of data/real.tsv.
std::vector<std::u16string> readRealFormulas();
