#pragma once

/// Adds the benchmarks of translated formulas in hosts.
void registerRuns();
