#pragma once

#include <cstdint>

// The crossing between the Windows module and the library.
//
// The module is a Windows DLL, the library the platform's own shared object; they share neither a
// C++ runtime nor a heap. So nothing crosses but plain values, texts as pointer and length, and
// functions of the Windows calling convention: no exception, no C++ object, no ownership. A build
// for Windows proper links the two sides into one module; the table is the same.

#if defined(_WIN32)
#define KX_BRIDGE_CALL
#else
#define KX_BRIDGE_CALL __attribute__((ms_abi))
#endif

namespace kx {

/// What came of a call; `failed` stands for any failure but a lack of memory.
enum class BridgeResult : std::int32_t { done = 0, outOfMemory = 1, failed = 2 };

/// A text that goes into the library: any code units, zeros included.
struct BridgeText {
    char16_t const* data;
    std::uint32_t length;
};

/// Receives one text of the library. The text ends in a zero and lives as long as the call.
struct TextReceiver {
    void* target;
    BridgeResult(KX_BRIDGE_CALL* receive)(void* target, char16_t const* text);
};

/// Receives a table of texts of the library: first the number of rows, then rows in rising
/// order. A row may be missing. A result other than `done` ends the transfer and is the call's.
struct TableReceiver {
    void* target;
    BridgeResult(KX_BRIDGE_CALL* begin)(void* target, std::uint32_t rows);
    BridgeResult(KX_BRIDGE_CALL* row)(void* target, std::uint32_t row, char16_t const* const* cells,
                                      std::uint32_t cellCount);
};

enum class BridgeCatalogue : std::int32_t { math, string, other };

/// One script host on the library's side.
struct BridgeParser;

/// The operations. Each runs on the calling thread and leaves its results alone unless it is
/// done; receivers are called before it returns. `stackLow` and `stackHigh` are the bounds of the
/// calling thread's stack: under Wine only the Windows side knows them, and V8 needs them
/// to end a recursion before the stack does.
struct Bridge {
    BridgeResult(KX_BRIDGE_CALL* create)(void const* stackLow, void const* stackHigh,
                                         BridgeParser** parser);
    void(KX_BRIDGE_CALL* destroy)(BridgeParser* parser);

    BridgeResult(KX_BRIDGE_CALL* initialize)(BridgeParser* parser);
    BridgeResult(KX_BRIDGE_CALL* reset)(BridgeParser* parser);
    BridgeResult(KX_BRIDGE_CALL* variableExist)(BridgeParser* parser, BridgeText const& name,
                                                bool& exists);
    BridgeResult(KX_BRIDGE_CALL* getVariableType)(BridgeParser* parser, BridgeText const& name,
                                                  std::int32_t& type);
    BridgeResult(KX_BRIDGE_CALL* addSetString)(BridgeParser* parser, BridgeText const& name,
                                               BridgeText const& value, bool& stored);
    BridgeResult(KX_BRIDGE_CALL* addSetLong)(BridgeParser* parser, BridgeText const& name,
                                             std::int32_t value, bool& stored);
    BridgeResult(KX_BRIDGE_CALL* addSetDouble)(BridgeParser* parser, BridgeText const& name,
                                               double value, bool& stored);
    BridgeResult(KX_BRIDGE_CALL* addSetBool)(BridgeParser* parser, BridgeText const& name,
                                             bool value, bool& stored);
    /// `error` is called only where there is an error text.
    BridgeResult(KX_BRIDGE_CALL* parse)(BridgeParser* parser, BridgeText const& source,
                                        TextReceiver const& error, std::int32_t& index);
    /// `error` is called only where there is an error text.
    BridgeResult(KX_BRIDGE_CALL* execute)(BridgeParser* parser, std::int32_t index,
                                          TextReceiver const& error, TextReceiver const& result);

    BridgeResult(KX_BRIDGE_CALL* convert)(BridgeText const& formula, TextReceiver const& result);
    /// `error` is called only where there is an error text. Rows of one cell.
    BridgeResult(KX_BRIDGE_CALL* extractVariable)(void const* stackLow, void const* stackHigh,
                                                  BridgeText const& source,
                                                  TextReceiver const& error,
                                                  TableReceiver const& names);
    BridgeResult(KX_BRIDGE_CALL* documentationOnePage)(bool standalone, bool withExample,
                                                       TextReceiver const& result);
    /// Rows of a function's name and its page.
    BridgeResult(KX_BRIDGE_CALL* documentationManyPages)(TableReceiver const& pages);
    /// Rows of name, description and first example; incomplete records are missing.
    BridgeResult(KX_BRIDGE_CALL* catalogue)(BridgeCatalogue which, TableReceiver const& records);
};

/// Changes with every change of the table, so that files of different builds refuse each other.
inline constexpr std::uint32_t bridgeVersion = 2;

}  // namespace kx

/// The table, valid for the life of the process, or null for another version.
extern "C" KX_BRIDGE_CALL kx::Bridge const* kxJsParserBridge(std::uint32_t version);
