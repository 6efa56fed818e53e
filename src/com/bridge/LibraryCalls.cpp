#include <string>
#include <vector>

#include "com/bridge/Calls.h"
#include "com/bridge/Transfer.h"
#include "convert/Converter.h"
#include "engine/StackBounds.h"
#include "host/KxJsParser.h"
#include "library/Catalogues.h"

// The calls that need no script host of the client's.

namespace kx::bridge {

KX_BRIDGE_CALL BridgeResult convert(BridgeText const& formula, TextReceiver const& result) {
    return guarded([&] { return send(Converter::_convert(stringOf(formula).c_str()), result); });
}

KX_BRIDGE_CALL BridgeResult extractVariable(void const* stackLow, void const* stackHigh,
                                            BridgeText const& source, TextReceiver const& error,
                                            TableReceiver const& names) {
    return guarded([&] {
        // Needs the bounds too: its private host may be the first one on this thread.
        setThreadStackBounds(stackLow, stackHigh);
        std::u16string errorText;
        auto const found = KxJsParser::_extractVariable(stringOf(source), errorText);
        BridgeResult sent = sendError(errorText, error);
        if (sent == BridgeResult::done) sent = beginTable(names, found.size());
        for (std::size_t i = 0; sent == BridgeResult::done && i < found.size(); ++i) {
            sent = sendRow(names, i, {found[i].c_str()});
        }
        return sent;
    });
}

KX_BRIDGE_CALL BridgeResult documentationOnePage(bool standalone, bool withExample,
                                                 TextReceiver const& result) {
    return guarded(
        [&] { return send(KxJsParser::_getUserDocumentation(standalone, withExample), result); });
}

KX_BRIDGE_CALL BridgeResult documentationManyPages(TableReceiver const& pages) {
    return guarded([&] {
        auto const documentation = KxJsParser::_getUserDocumentation();
        BridgeResult sent = beginTable(pages, documentation.size());
        for (std::size_t i = 0; sent == BridgeResult::done && i < documentation.size(); ++i) {
            auto const& [name, page] = documentation[i];
            sent = sendRow(pages, i, {name.c_str(), page.c_str()});
        }
        return sent;
    });
}

namespace {

std::vector<KxJsFunction> build(BridgeCatalogue which) {
    switch (which) {
        case BridgeCatalogue::math:
            return buildMathFunctions();
        case BridgeCatalogue::string:
            return buildStringFunctions();
        case BridgeCatalogue::other:
            return buildMiscFunctions();
    }
    return {};
}

}  // namespace

BridgeResult sendRecords(std::vector<KxJsFunction> const& functions, TableReceiver const& records) {
    BridgeResult sent = beginTable(records, functions.size());
    for (std::size_t i = 0; sent == BridgeResult::done && i < functions.size(); ++i) {
        KxJsFunction const& function = functions[i];
        if (!function.isComplete()) continue;
        sent = sendRow(records, i,
                       {function.getName().c_str(), function.getDescription().c_str(),
                        function.getExamples().front().c_str()});
    }
    return sent;
}

KX_BRIDGE_CALL BridgeResult catalogue(BridgeCatalogue which, TableReceiver const& records) {
    return guarded([&] { return sendRecords(build(which), records); });
}

}  // namespace kx::bridge
