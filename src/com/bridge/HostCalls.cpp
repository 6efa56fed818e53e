#include <stdexcept>
#include <string>

#include "com/bridge/Calls.h"
#include "com/bridge/Transfer.h"
#include "engine/StackBounds.h"
#include "host/KxJsParser.h"
#include "host/KxJsVariable.h"

// The calls that work on one script host.

namespace kx {

struct BridgeParser {
    KxJsParser host;
};

namespace bridge {

KX_BRIDGE_CALL BridgeResult create(void const* stackLow, void const* stackHigh,
                                   BridgeParser** parser) {
    return guarded([&] {
        setThreadStackBounds(stackLow, stackHigh);
        *parser = new BridgeParser;
        return BridgeResult::done;
    });
}

KX_BRIDGE_CALL void destroy(BridgeParser* parser) { delete parser; }

KX_BRIDGE_CALL BridgeResult initialize(BridgeParser* parser) {
    return guarded([&] {
        parser->host.initialize();
        return BridgeResult::done;
    });
}

KX_BRIDGE_CALL BridgeResult reset(BridgeParser* parser) {
    return guarded([&] {
        parser->host.reset();
        return BridgeResult::done;
    });
}

KX_BRIDGE_CALL BridgeResult variableExist(BridgeParser* parser, BridgeText const& name,
                                          bool& exists) {
    return guarded([&] {
        exists = parser->host.variableExist(stringOf(name));
        return BridgeResult::done;
    });
}

KX_BRIDGE_CALL BridgeResult getVariableType(BridgeParser* parser, BridgeText const& name,
                                            std::int32_t& type) {
    return guarded([&] {
        type = parser->host.getVariableType(stringOf(name));
        return BridgeResult::done;
    });
}

namespace {

template <class Value>
BridgeResult addSet(BridgeParser* parser, BridgeText const& name, Value const& value,
                    bool& stored) {
    return guarded([&] {
        stored = parser->host.addSetVariable(KxJsVariable(stringOf(name), value));
        return BridgeResult::done;
    });
}

}  // namespace

KX_BRIDGE_CALL BridgeResult addSetString(BridgeParser* parser, BridgeText const& name,
                                         BridgeText const& value, bool& stored) {
    return guarded([&] { return addSet(parser, name, stringOf(value), stored); });
}

KX_BRIDGE_CALL BridgeResult addSetLong(BridgeParser* parser, BridgeText const& name,
                                       std::int32_t value, bool& stored) {
    return addSet(parser, name, value, stored);
}

KX_BRIDGE_CALL BridgeResult addSetDouble(BridgeParser* parser, BridgeText const& name, double value,
                                         bool& stored) {
    return addSet(parser, name, value, stored);
}

KX_BRIDGE_CALL BridgeResult addSetBool(BridgeParser* parser, BridgeText const& name, bool value,
                                       bool& stored) {
    return addSet(parser, name, value, stored);
}

KX_BRIDGE_CALL BridgeResult parse(BridgeParser* parser, BridgeText const& source,
                                  TextReceiver const& error, std::int32_t& index) {
    return guarded([&] {
        std::u16string errorText;
        index = parser->host.parse(stringOf(source), errorText);
        return sendError(errorText, error);
    });
}

namespace {

/// An exception cannot cross, so a caller without it gets its text, as for any other failed run.
std::u16string executeOrSay(KxJsParser& host, std::int32_t index, std::u16string& error) {
    try {
        return host.execute(index, error);
    } catch (std::out_of_range const& failure) {
        std::string const text = failure.what();
        error.assign(text.begin(), text.end());
        return {};
    }
}

}  // namespace

KX_BRIDGE_CALL BridgeResult execute(BridgeParser* parser, std::int32_t index,
                                    TextReceiver const& error, TextReceiver const& result) {
    return guarded([&] {
        std::u16string errorText;
        std::u16string const resultText = executeOrSay(parser->host, index, errorText);
        BridgeResult const sent = sendError(errorText, error);
        return sent == BridgeResult::done ? send(resultText, result) : sent;
    });
}

}  // namespace bridge
}  // namespace kx
