// The library's side of the crossing, without the Windows module in front of it.

#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "com/bridge/Calls.h"
#include "com/bridge/Transfer.h"
#include "library/KxJsFunction.h"

namespace {

using kx::BridgeResult;

TEST(Bridge, tellsALackOfMemoryFromOtherFailures) {
    EXPECT_EQ(kx::guarded([] { return BridgeResult::done; }), BridgeResult::done);
    EXPECT_EQ(kx::guarded([]() -> BridgeResult { throw std::bad_alloc(); }),
              BridgeResult::outOfMemory);
    EXPECT_EQ(kx::guarded([]() -> BridgeResult { throw std::length_error("a text"); }),
              BridgeResult::outOfMemory);
    EXPECT_EQ(kx::guarded([]() -> BridgeResult { throw std::logic_error("not compiled"); }),
              BridgeResult::failed);
    EXPECT_EQ(kx::guarded([]() -> BridgeResult { throw std::out_of_range("no such script"); }),
              BridgeResult::failed);
    EXPECT_EQ(kx::guarded([]() -> BridgeResult { throw 1; }), BridgeResult::failed);
}

/// The rows that were received, with their numbers.
struct Rows {
    std::uint32_t count = 0;
    std::vector<std::pair<std::uint32_t, std::u16string>> names;

    kx::TableReceiver receiver() { return {this, &begin, &row}; }

    static KX_BRIDGE_CALL BridgeResult begin(void* target, std::uint32_t rows) {
        static_cast<Rows*>(target)->count = rows;
        return BridgeResult::done;
    }
    static KX_BRIDGE_CALL BridgeResult row(void* target, std::uint32_t number,
                                           char16_t const* const* cells, std::uint32_t count) {
        auto& names = static_cast<Rows*>(target)->names;
        names.emplace_back(number, count == 3 ? *cells : u"not three cells");
        return names.size() == 3 ? BridgeResult::failed : BridgeResult::done;
    }
};

KxJsFunction function(std::u16string const& name, bool isComplete) {
    KxJsFunction made;
    made.setName(name);
    made.setDescription(u"text");
    made.setReturnDescription(u"text");
    made.setBody(u"return 1;");
    if (isComplete) made.addExample(name + u"()");
    return made;
}

TEST(Bridge, sendsNoRowsOfIncompleteRecords) {
    Rows rows;
    EXPECT_EQ(kx::bridge::sendRecords({function(u"ONE", true), function(u"TWO", false),
                                       function(u"THREE", true), function(u"FOUR", false)},
                                      rows.receiver()),
              BridgeResult::done);
    EXPECT_EQ(rows.count, 4U);
    std::vector<std::pair<std::uint32_t, std::u16string>> const expected = {{0, u"ONE"},
                                                                            {2, u"THREE"}};
    EXPECT_EQ(rows.names, expected);
}

TEST(Bridge, endsATransferAtTheReceiversFailure) {
    Rows rows;
    std::vector<KxJsFunction> const records(5, function(u"ONE", true));
    EXPECT_EQ(kx::bridge::sendRecords(records, rows.receiver()), BridgeResult::failed);
    EXPECT_EQ(rows.names.size(), 3U);
}

}  // namespace
