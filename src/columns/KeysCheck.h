#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <v8.h>

namespace kx {

class BoundVariable;

/// Whether a key is also the name of another key's carrier: reading the one then changes what the
/// other gives.
bool areCarriersKeys(std::vector<std::u16string> const& keys);

/// Whether the prologue line of `key`, whose variable is `bound`, does what it does where no script
/// has interfered: the key is a name, the global object has it as a plain property, and its carrier
/// is one that the host made.
bool isBoundAsMade(v8::Local<v8::Context> context, std::u16string const& key,
                   BoundVariable const& bound, std::u16string_view accessorName);

/// Whether scripts find the carriers of `keys` under their names: no let, const or class of a
/// script hides them. To be asked where isBoundAsMade() holds for each.
bool areCarriersUnshadowed(v8::Local<v8::Context> context, std::vector<std::u16string> const& keys);

}  // namespace kx
