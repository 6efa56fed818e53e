#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <v8.h>

namespace kx {

class BoundVariable;

/// Whether a key is also the name of another one's carrier: binding the one changes what the other
/// gives.
bool areCarriersKeys(std::vector<std::u16string> const& keys);

/// Whether the line in front of a script that binds `key`, which belongs to `bound`, does now what
/// it does for a variable that nobody touched: the key is a name, the global object has it as a
/// plain property, and its carrier as the host made it.
bool isBoundAsMade(v8::Local<v8::Context> context, std::u16string const& key,
                   BoundVariable const& bound, std::u16string_view accessorName);

/// Whether scripts find under the carriers' names what the global object has there: nothing that
/// scripts have declared with let, const or class stands in front. Where isBoundAsMade().
bool areCarriersInFront(v8::Local<v8::Context> context, std::vector<std::u16string> const& keys);

}  // namespace kx
