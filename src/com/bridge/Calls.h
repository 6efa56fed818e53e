#pragma once

#include <vector>

#include "com/Bridge.h"
#include "library/KxJsFunction.h"

// The functions behind the table. No exception of the library leaves them: a script that does not
// exist is an error text, as for any other failed run; all others are the call's result.

namespace kx::bridge {

KX_BRIDGE_CALL BridgeResult create(void const* stackLow, void const* stackHigh,
                                   BridgeParser** parser);
KX_BRIDGE_CALL void destroy(BridgeParser* parser);
KX_BRIDGE_CALL BridgeResult initialize(BridgeParser* parser);
KX_BRIDGE_CALL BridgeResult reset(BridgeParser* parser);
KX_BRIDGE_CALL BridgeResult variableExist(BridgeParser* parser, BridgeText const& name,
                                          bool& exists);
KX_BRIDGE_CALL BridgeResult getVariableType(BridgeParser* parser, BridgeText const& name,
                                            std::int32_t& type);
KX_BRIDGE_CALL BridgeResult addSetString(BridgeParser* parser, BridgeText const& name,
                                         BridgeText const& value, bool& stored);
KX_BRIDGE_CALL BridgeResult addSetLong(BridgeParser* parser, BridgeText const& name,
                                       std::int32_t value, bool& stored);
KX_BRIDGE_CALL BridgeResult addSetDouble(BridgeParser* parser, BridgeText const& name, double value,
                                         bool& stored);
KX_BRIDGE_CALL BridgeResult addSetBool(BridgeParser* parser, BridgeText const& name, bool value,
                                       bool& stored);
KX_BRIDGE_CALL BridgeResult parse(BridgeParser* parser, BridgeText const& source,
                                  TextReceiver const& error, std::int32_t& index);
KX_BRIDGE_CALL BridgeResult execute(BridgeParser* parser, std::int32_t index,
                                    TextReceiver const& error, TextReceiver const& result);

KX_BRIDGE_CALL BridgeResult convert(BridgeText const& formula, TextReceiver const& result);
KX_BRIDGE_CALL BridgeResult extractVariable(void const* stackLow, void const* stackHigh,
                                            BridgeText const& source, TextReceiver const& error,
                                            TableReceiver const& names);
KX_BRIDGE_CALL BridgeResult documentationOnePage(bool standalone, bool withExample,
                                                 TextReceiver const& result);
KX_BRIDGE_CALL BridgeResult documentationManyPages(TableReceiver const& pages);
/// What catalogue() sends of `functions`: a row for each that is complete.
BridgeResult sendRecords(std::vector<KxJsFunction> const& functions, TableReceiver const& records);
KX_BRIDGE_CALL BridgeResult catalogue(BridgeCatalogue which, TableReceiver const& records);

}  // namespace kx::bridge
