#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <v8.h>

#include "host/HostBackend.h"
#include "host/V8Script.h"
#include "native/Program.h"

namespace kx {

class BoundVariable;

/// A script as its caller wrote it, and the variables that V8 reads for it.
struct ScriptSource {
    std::u16string text;
    std::vector<BoundVariable*> variables;

    /// The lines in front of the text that read the variables. Only V8 needs them.
    std::u16string prologue() const;
};

/// What a script can do to its context that others see.
struct ScriptEffects {
    bool mayHave = true;
    bool isRunTimePart = false;  // of translated formulas, which is in the context from then on
    /// It has none where these names stand for plain values, or for nothing.
    std::vector<std::u16string> unlessPlain = {};
};

/// A compiled script of a host in this process: a program that runs without V8, what V8 has
/// compiled, both, or neither yet. Holds a handle: see IsolateRecord for where it may be destroyed.
class HostScript final : public CompiledScript {
  public:
    explicit HostScript(ScriptSource source) : source_(std::move(source)) {}

    /// Its text is empty once V8 has compiled it.
    ScriptSource const& source() const { return source_; }

    /// Null where the script needs V8.
    Program const* program() const { return program_ ? &*program_ : nullptr; }
    void setProgram(std::optional<Program> program) { program_ = std::move(program); }

    /// Null until setCompiled().
    V8Script const* compiled() const { return compiled_ ? &*compiled_ : nullptr; }
    ScriptEffects const& effects() const { return effects_; }

    /// What V8 makes of the script may be added when it is needed. V8 keeps the text.
    void setCompiled(OwnHandles& all, v8::Local<v8::Script> script,
                     std::size_t prologueLength) const {
        compiled_.emplace(all, script, source_.text, prologueLength);
        std::u16string().swap(source_.text);  // an assignment would keep the memory
    }
    void setEffects(ScriptEffects effects) const { effects_ = std::move(effects); }

  private:
    mutable ScriptSource source_;
    std::optional<Program> program_;
    mutable std::optional<V8Script> compiled_;
    mutable ScriptEffects effects_;
};

}  // namespace kx
