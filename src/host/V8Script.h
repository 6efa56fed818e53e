#pragma once

#include <cstddef>
#include <string_view>

#include <v8.h>

#include "engine/PersistentHandle.h"
#include "host/Failure.h"

namespace kx {

/// A script that V8 has compiled. Holds a handle: see IsolateRecord for where it may be destroyed.
class V8Script {
  public:
    /// `source` is the caller's. V8 has compiled it behind a prologue of `prologueLength` units.
    V8Script(OwnHandles& all, v8::Local<v8::Script> script, std::u16string_view source,
             std::size_t prologueLength)
        : handle_(all, script),
          source_{script->GetUnboundScript()->GetId(), prologueLength},
          mayDeclareNames_(mayDeclareNames(source)) {}

    /// The script for one run. After a script has declared names with let, const or class, V8 ends
    /// the process when the same handle runs again. Such a script is therefore bound to the context
    /// anew for each run, and the second run throws that the names exist.
    v8::Local<v8::Script> forRun(v8::Isolate* isolate, v8::Local<v8::Context> context) const {
        v8::Local<v8::Script> const script = handle_.get(isolate);
        if (!mayDeclareNames_) return script;
        v8::Context::Scope const entered(context);
        return script->GetUnboundScript()->BindToCurrentContext();
    }

    CallerSource const& callerSource() const { return source_; }

  private:
    // The prologue contains no word that is not in the caller's source. One pass: every parse pays
    // for it.
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
