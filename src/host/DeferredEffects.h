#pragma once

#include <span>
#include <string>
#include <vector>

#include <v8.h>

#include "host/BoundVariable.h"
#include "native/Functions.h"

namespace kx {

class Carriers;

/// What formulas would have done in V8 that were compiled and run without it: carriers of their
/// variables, globals with the values of the last run, and what regular expressions have matched.
/// Applied, in the same order, before V8 runs anything that could see it.
class DeferredEffects {
  public:
    bool isEmpty() const { return pending_.empty() && pattern_ == Match::Pattern::none; }

    /// A script was compiled that reads `variable`.
    void noteCarrier(BoundVariable& variable);

    /// A formula was run that read these values of its variables.
    void noteRun(std::span<BoundVariable* const> variables, std::span<Value const> values);

    /// A formula was run that left this match.
    void noteMatch(Match const& match);

    /// Belongs inside the context.
    void apply(v8::Local<v8::Context> context, v8::Local<v8::ObjectTemplate> shape,
               Carriers& carriers);

    /// The variables are about to be gone.
    void forgetVariables() { pending_.clear(); }

  private:
    enum class Effect : std::uint8_t { carrier, assignment };

    struct Pending {
        Effect effect;
        BoundVariable* variable;
    };

    void applyMatch(v8::Local<v8::Context> context);

    std::vector<Pending> pending_;  // by the time of the first
    Match::Pattern pattern_ = Match::Pattern::none;
    std::u16string subject_;
};

}  // namespace kx
