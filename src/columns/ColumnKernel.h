#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <v8.h>

#include "columns/Column.h"
#include "host/HostResources.h"

namespace kx {

/// The names of a formula, in the order in which its function takes them.
struct ColumnBindings {
    std::vector<Column const*> columns;
    std::vector<std::u16string> constants;   ///< variables of the host that are no columns
    std::vector<std::u16string> evaluating;  ///< IIF and COND, where the formula names them
};

/// A formula, known to be a pure expression, compiled into a loop over records.
///
/// The formula is a function of its own that gets the values of one record. The loop around it
/// alone sees the arrays; it is strict code, so that no function called from it can reach its
/// arguments.
class ColumnKernel {
  public:
    /// Compiles in the entered context. Null where V8 refuses.
    static std::unique_ptr<ColumnKernel> make(OwnHandles& all, v8::Local<v8::Context> context,
                                              std::u16string_view expression,
                                              ColumnBindings const& bindings,
                                              ColumnResults const& results);

    /// Whether it is the loop for names and types like these.
    bool fits(ColumnBindings const& bindings, ColumnResults const& results) const;

    /// The loop. Its arguments: the formula, the first record, the record after the last, the
    /// record that texts are counted from, two numbers for where it stopped and whether by a
    /// failure, results, lengths and kinds of the results, then what the bindings name.
    v8::Local<v8::Function> loop(v8::Isolate* isolate) const { return handles_[0]->get(isolate); }
    v8::Local<v8::Function> formula(v8::Isolate* isolate) const {
        return handles_[1]->get(isolate);
    }
    /// What the formula calls in place of the built-in function `name`, which evaluates texts. It
    /// gives the same for all other values, and fails for a text: that has to be evaluated by the
    /// script.
    v8::Local<v8::Function> evaluating(v8::Isolate* isolate, std::u16string_view name) const {
        return handles_[name == u"IIF" ? 2 : 3]->get(isolate);
    }

    /// Moves the handles to `resources`.
    void release(HostResources& resources) noexcept;

  private:
    using Handle = std::unique_ptr<PersistentHandle<v8::Function>>;

    std::vector<Handle> handles_;
    std::u16string signature_;
};

/// What a text result came from, as the loop notes it.
enum class ResultKind : std::uint8_t { number, text, isFalse, isTrue, undefined, null };

}  // namespace kx
