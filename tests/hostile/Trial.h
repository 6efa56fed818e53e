#pragma once

#include "HostileScript.h"

/// Runs the script in a host of its own, then ordinary formulas in the same host and in a fresh
/// one. Prints what happened. Whether everything was as it must be.
bool survives(HostileScript const& script);

/// Runs a hopeless script in a process of its own and looks how that ends.
enum class End { asExpected, survived, otherwise };
End endOf(HostileScript const& script);
