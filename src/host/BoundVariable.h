#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <v8.h>

#include "engine/PersistentHandle.h"
#include "host/KxJsVariable.h"
#include "native/Value.h"

namespace kx {

/// The global name under which scripts find the carriers of the variable `key`.
std::u16string carrierNameFor(std::u16string const& key);

/// What scripts read of one variable: its value at the moment of reading.
///
/// Most texts stay the same from run to run. So V8's string of a text is kept once the text has
/// been read a second time. Holds handles: see IsolateRecord for where they may be destroyed.
class BoundVariable {
  public:
    BoundVariable(KxJsVariable const& variable, std::u16string_view accessorName,
                  OwnHandles& handles);
    BoundVariable(BoundVariable const&) = delete;
    BoundVariable& operator=(BoundVariable const&) = delete;

    /// Where the variable is read.
    OwnHandles& handles() { return handles_; }

    /// carrierNameFor() the variable's key. Empty where it is longer than V8 allows.
    v8::Local<v8::String> carrierName(v8::Isolate* isolate);

    /// The line in front of a script that reads the variable through its carrier.
    std::u16string const& prologueLine() const { return prologueLine_; }

    /// Sets `result` to the value.
    void read(v8::Isolate* isolate, v8::ReturnValue<v8::Value> result);

    /// The same value as a handle.
    v8::Local<v8::Value> value(v8::Isolate* isolate);

    /// The same value for formulas that run without V8. Its text is the variable's own.
    Value nativeValue() const;

    std::u16string const& key() const { return variable_._mKey; }
    /// isPlainKey() of it.
    bool isPlain();

    /// What DeferredEffects and scripts have to know of the variable's globals.
    struct Globals {
        bool hasCarrier = false;  // which may be another object's name by now, after scripts
        bool isCarrierPending = false;
        bool isAssignmentPending = false;
    };
    Globals& globals() { return globals_; }

    /// Keeps nativeValue() until keptValue() is asked for.
    /// @{
    void keepValue(Value const& value);
    v8::Local<v8::Value> keptValue(v8::Isolate* isolate) const;
    /// @}

  private:
    /// Calls `use` with a std::int32_t, a double, a bool or a handle of V8's string.
    template <class Use>
    void visit(v8::Isolate* isolate, Use use);
    // Not inlined: without it, numbers need no stack frame.
    template <class Use>
    [[gnu::noinline]] void visitText(v8::Isolate* isolate, Use use);
    bool areLastUnits(std::u16string_view units) const;

    KxJsVariable const& variable_;
    std::u16string const prologueLine_;
    OwnHandles& handles_;
    PersistentHandle<v8::String> carrierName_;
    std::u16string lastUnits_;               // of the text that was read last
    PersistentHandle<v8::String> lastText_;  // what scripts see of it, or empty
    std::optional<bool> isPlain_;            // once asked for
    Globals globals_;
    Value kept_;
    std::u16string keptText_;
};

}  // namespace kx
