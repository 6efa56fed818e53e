#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "FormulaGenerator.h"
#include "TranslatedGenerator.h"
#include "host/KxJsParser.h"

/// Does the same in two hosts, one of which leaves everything to V8, and compares what a caller
/// sees.
class HostPair {
  public:
    explicit HostPair(Choices const& choices);

    /// Does a chosen step in both hosts. Returns the difference and what led to it; empty where
    /// there is none.
    std::u16string step();

    /// Compares the names and values of all globals, and what the last regular expression matched.
    /// Empty where they are the same.
    std::u16string compareContexts();

  private:
    /// What a call of a host has given.
    struct Outcome {
        std::u16string result;
        std::u16string error;
        std::u16string failure;
        bool operator==(Outcome const&) const = default;
    };

    static std::u16string failureOf(KxJsParser const& host);
    std::u16string compare(std::u16string const& what, Outcome const& native,
                           Outcome const& engine);
    /// Lets `call` return the result of a host and set its error text, for both. Empty where they
    /// are the same.
    template <class Call>
    std::u16string compareCalls(std::u16string const& what, Call call);

    void noteLimits();

    std::u16string source();
    std::u16string bind();
    std::u16string parse();
    std::u16string execute();
    std::u16string evaluate(std::u16string const& source);

    Choices choices_;
    FormulaGenerator generator_;
    TranslatedGenerator translated_;
    KxJsParser native_;
    KxJsParser engine_;
    std::vector<std::u16string> parsed_;
    std::u16string done_;  // for the report
    bool isOver_ = false;  // a limit has ended a script, in one of them perhaps
};
