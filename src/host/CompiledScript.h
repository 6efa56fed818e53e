#pragma once

#include <cstddef>
#include <string_view>

#include <v8.h>

#include "engine/PersistentHandle.h"
#include "host/Failure.h"

namespace kx {

/// Keeps a compiled script alive. Must not be destroyed after its isolate: see IsolateRecord.
class CompiledScript {
  public:
    /// `source` is the whole text, its first `prologueLength` code units not the caller's.
    CompiledScript(OwnHandles& all, v8::Local<v8::Script> script, std::u16string_view source,
                   std::size_t prologueLength)
        : handle_(all, script),
          source_{script->GetUnboundScript()->GetId(), prologueLength},
          mayDeclareNames_(mayDeclareNames(source.substr(prologueLength))) {}

    /// The script for one run. The engine leaves a script that has declared names with let, const
    /// or class in a state in which a second run ends the process, so such a script is bound anew
    /// for each run, and says itself that the names are taken.
    v8::Local<v8::Script> forRun(v8::Isolate* isolate, v8::Local<v8::Context> context) const {
        v8::Local<v8::Script> const script = handle_.get(isolate);
        if (!mayDeclareNames_) return script;
        v8::Context::Scope const entered(context);
        return script->GetUnboundScript()->BindToCurrentContext();
    }

    CallerSource const& callerSource() const { return source_; }

  private:
    // The prologue holds no word that the caller's source does not hold, too. Once through the
    // source: it is looked at for every parse.
    static bool mayDeclareNames(std::u16string_view source) {
        for (std::size_t i = 0; i < source.size(); ++i) {
            if (source[i] != u'l' && source[i] != u'c') continue;
            std::u16string_view const rest = source.substr(i);
            if (rest.starts_with(u"let") || rest.starts_with(u"const") ||
                rest.starts_with(u"class")) {
                return true;
            }
        }
        return false;
    }

    PersistentHandle<v8::Script> handle_;
    CallerSource source_;
    bool mayDeclareNames_;
};

}  // namespace kx
