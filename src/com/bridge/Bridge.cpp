#include "com/Bridge.h"

#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "convert/Converter.h"
#include "host/KxJsParser.h"
#include "host/KxJsVariable.h"
#include "host/StackBounds.h"
#include "library/Catalogues.h"

// The library's side of the crossing. Every function ends its exceptions here.

namespace kx {

struct BridgeParser {
    KxJsParser host;
};

namespace {

std::u16string stringOf(BridgeText const& text) { return {text.data, text.length}; }

/// Runs `work`. The library throws where memory ends (std::bad_alloc, or std::length_error for a
/// text beyond any memory) and nowhere else.
template <class Work>
BridgeResult guarded(Work const& work) noexcept {
    try {
        return work();
    } catch (...) {
        return BridgeResult::outOfMemory;
    }
}

BridgeResult send(std::u16string const& text, TextReceiver const& receiver) {
    return receiver.take(receiver.target, text.c_str());
}

BridgeResult sendError(std::u16string const& text, TextReceiver const& receiver) {
    return text.empty() ? BridgeResult::done : send(text, receiver);
}

BridgeResult sendRow(TableReceiver const& receiver, std::size_t row,
                     std::initializer_list<char16_t const*> cells) {
    return receiver.row(receiver.target, static_cast<std::uint32_t>(row), cells.begin(),
                        static_cast<std::uint32_t>(cells.size()));
}

BridgeResult beginTable(TableReceiver const& receiver, std::size_t rows) {
    return receiver.begin(receiver.target, static_cast<std::uint32_t>(rows));
}

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

template <class Value>
BridgeResult addSet(BridgeParser* parser, BridgeText const& name, Value const& value,
                    bool& stored) {
    return guarded([&] {
        stored = parser->host.addSetVariable(KxJsVariable(stringOf(name), value));
        return BridgeResult::done;
    });
}

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

KX_BRIDGE_CALL BridgeResult execute(BridgeParser* parser, std::int32_t index,
                                    TextReceiver const& error, TextReceiver const& result) {
    return guarded([&] {
        std::u16string errorText;
        std::u16string const resultText = executeOrSay(parser->host, index, errorText);
        BridgeResult const sent = sendError(errorText, error);
        return sent == BridgeResult::done ? send(resultText, result) : sent;
    });
}

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

KX_BRIDGE_CALL BridgeResult catalogue(BridgeCatalogue which, TableReceiver const& records) {
    return guarded([&] {
        auto const functions = build(which);
        BridgeResult sent = beginTable(records, functions.size());
        for (std::size_t i = 0; sent == BridgeResult::done && i < functions.size(); ++i) {
            KxJsFunction const& function = functions[i];
            if (!function.isComplete()) continue;
            sent = sendRow(records, i,
                           {function.getName().c_str(), function.getDescription().c_str(),
                            function.getExamples().front().c_str()});
        }
        return sent;
    });
}

Bridge const table = {
    create,
    destroy,
    initialize,
    reset,
    variableExist,
    getVariableType,
    addSetString,
    addSetLong,
    addSetDouble,
    addSetBool,
    parse,
    execute,
    convert,
    extractVariable,
    documentationOnePage,
    documentationManyPages,
    catalogue,
};

}  // namespace
}  // namespace kx

extern "C" KX_BRIDGE_CALL kx::Bridge const* kxJsParserBridge(std::uint32_t version) {
    return version == kx::bridgeVersion ? &kx::table : nullptr;
}
