#pragma once

#include <cstdint>
#include <ostream>
#include <string>

#include "host/KxJsParser.h"
#include "support/HostKind.h"

/// A host with the short calls that tests want.
class ScriptHost {
  public:
    struct Run {
        std::u16string result;
        std::u16string error;
        bool operator==(Run const&) const = default;
        /// Found by the test framework, which would print lists of numbers otherwise.
        friend void PrintTo(Run const& run, std::ostream* stream);
    };

    ScriptHost() { host.initialize(); }

    template <class Value>
    bool bind(std::u16string const& key, Value const& value) {
        return host.addSetVariable(KxJsVariable(key, value));
    }

    /// The index of a source that must compile.
    std::int32_t parse(std::u16string const& source) {
        std::u16string error;
        std::int32_t const index = host.parse(source, error);
        parseError = error;
        return index;
    }

    Run execute(std::int32_t index) {
        Run run;
        run.result = host.execute(index, run.error);
        return run;
    }

    /// Parses and executes; a parse error is the run's error.
    Run run(std::u16string const& source) {
        std::int32_t const index = parse(source);
        if (index == -1) return {u"", parseError};
        return execute(index);
    }

    /// The result alone.
    std::u16string eval(std::u16string const& source) { return run(source).result; }

    KxJsParser host = makeHost();
    std::u16string parseError;
};
