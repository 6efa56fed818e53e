#pragma once

#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include <v8.h>

#include "engine/PersistentHandle.h"

class KxJsVariable;

namespace kx {

class BoundVariable;

/// The objects through which scripts read a host's variables: each carries the address of one
/// BoundVariable in its internal field 0, where the accessor's getter finds it.
///
/// A script may keep a carrier longer than its variable lives. So all carriers are known (by weak
/// handles, which do not keep them alive), and are cut from their variables before the variables
/// are destroyed. A carrier without a variable reads as undefined.
class Carriers {
  public:
    Carriers();
    ~Carriers();
    Carriers(Carriers&&) noexcept;
    Carriers& operator=(Carriers&&) noexcept;

    /// What carriers of `variable` carry, until they are cut.
    BoundVariable& bound(KxJsVariable const& variable, std::u16string_view accessorName,
                         OwnHandles& handles);

    /// A new instance of `shape` that carries `variable`, or an empty handle where V8
    /// cannot make one.
    v8::Local<v8::Object> make(v8::Local<v8::Context> context, v8::Local<v8::ObjectTemplate> shape,
                               BoundVariable& variable);

    /// Makes a carrier of `variable` and defines the global under which scripts find it.
    void define(v8::Local<v8::Context> context, v8::Local<v8::ObjectTemplate> shape,
                BoundVariable& variable);

    /// Whether `value` is a carrier of `variable`, of whichever parse.
    static bool isCarrierOf(v8::Local<v8::Value> value, BoundVariable const& variable);

    /// Cuts every carrier from its variable. The isolate must be the current one.
    void cutAll(v8::Isolate* isolate);

    /// Makes the accessor of a new context's global object read as undefined.
    static void leaveGlobalEmpty(v8::Local<v8::Context> context);

    /// The accessor's getter: the value of the variable that the holder carries.
    static void accessorGetter(v8::Local<v8::Name> property,
                               v8::PropertyCallbackInfo<v8::Value> const& info);

  private:
    void forgetCollected();

    std::map<KxJsVariable const*, std::unique_ptr<BoundVariable>> variables_;
    std::vector<std::unique_ptr<PersistentHandle<v8::Object>>> carriers_;
    std::size_t collectAt_ = 64;
};

}  // namespace kx
