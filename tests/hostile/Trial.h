#pragma once

#include "HostileScript.h"

/// Runs the script in a host of its own, then ordinary formulas in the same host and in a new one.
/// Prints the results. Returns whether all are as expected.
bool survives(HostileScript const& script);

/// Runs a hopeless script in a forked child and tells how the child ends.
enum class End { asExpected, survived, otherwise };
End endOf(HostileScript const& script);
