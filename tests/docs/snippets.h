#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include "columns/KxJsColumns.h"
#include "convert/Converter.h"
#include "host/KxJsFailure.h"
#include "host/KxJsParser.h"
#include "host/KxJsVariable.h"
#include "translate/KxJsTranslator.h"

/// What a document's pieces of C++ print with. The standard library writes out a path as UTF-8.
inline std::string utf8(std::u16string const& text) { return std::filesystem::path(text).string(); }

/// A block of C++ in a document: its first line, what it does, and what it must print.
struct Snippet {
    int line;
    std::function<int()> run;  // returns what main would
    std::string expected;
};

/// Runs the snippets in order and names those that print something else than expected. Returns the
/// exit status for the program.
int runSnippets(std::string const& document, std::vector<Snippet> const& snippets);
