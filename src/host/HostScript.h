#pragma once

#include <memory>
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

/// A source with the prologue that binds its variables.
struct WrappedSource {
    std::u16string text;
    std::size_t prologueLength = 0;
    std::vector<BoundVariable*> variables;  // those that the prologue binds

    std::u16string_view callerText() const {
        return std::u16string_view(text).substr(prologueLength);
    }
};

/// What a script can do to its context that others see.
struct ScriptEffects {
    bool mayHave = true;
    bool isRunTimePart = false;  // of translated formulas, which is in the context from then on
    /// It has none where these names stand for plain values, or for nothing.
    std::vector<std::u16string> unlessPlain = {};
};

/// A compiled script of a host in this process: a program that runs without V8, or what V8 has
/// compiled, or both. Holds a handle: see IsolateRecord for where it may be destroyed.
class HostScript final : public CompiledScript {
  public:
    HostScript(WrappedSource source, std::unique_ptr<Program> program)
        : source_(std::move(source)), program_(std::move(program)) {}

    WrappedSource const& source() const { return source_; }
    /// V8 keeps the text of what it has compiled.
    void forgetText() { source_.text = {}; }

    /// Null where the script needs V8.
    Program const* program() const { return program_.get(); }

    /// Null until setCompiled().
    V8Script const* compiled() const { return compiled_ ? &*compiled_ : nullptr; }
    ScriptEffects const& effects() const { return effects_; }

    /// What V8 makes of the script may be added when it is needed.
    void setCompiled(OwnHandles& all, v8::Local<v8::Script> script, ScriptEffects effects) const {
        compiled_.emplace(all, script, source_.text, source_.prologueLength);
        setEffects(std::move(effects));
    }
    void setEffects(ScriptEffects effects) const { effects_ = std::move(effects); }

  private:
    WrappedSource source_;
    std::unique_ptr<Program> program_;
    mutable std::optional<V8Script> compiled_;
    mutable ScriptEffects effects_;
};

}  // namespace kx
