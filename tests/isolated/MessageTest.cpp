// Messages between host and worker, whole and cut off anywhere.
#include <gtest/gtest.h>
#include <limits>
#include <vector>

#include "columns/ColumnReply.h"
#include "columns/RecentTexts.h"
#include "isolated/Message.h"
#include "isolated/Protocol.h"

namespace {

kx::CommandResult fullResult() {
    kx::CommandResult result;
    result.isDone = true;
    result.text = u"result";
    result.error = u"error";
    result.endReason = kx::EndReason::memoryLimit;
    KxJsFailure failure;
    failure.kind = KxJsFailure::Kind::LIMIT;
    failure.message = u"message";
    failure.line = 3;
    failure.column = 4;
    failure.endColumn = 5;
    failure.isInCall = true;
    failure.sourceLine = u"line";
    failure.frames = {{u"f", 1, 2, true}, {u"", 3, 4, false}};
    result.failure = failure;
    return result;
}

std::vector<std::byte> bytesOf(kx::CommandResult const& result) {
    kx::MessageWriter writer;
    putResult(writer, result);
    return writer.bytes();
}

TEST(Message, carriesAResult) {
    auto const bytes = bytesOf(fullResult());
    kx::MessageReader reader(bytes);
    kx::CommandResult const result = takeResult(reader);
    ASSERT_TRUE(reader.isRight());
    EXPECT_TRUE(result.isDone);
    EXPECT_EQ(result.text, u"result");
    EXPECT_EQ(result.error, u"error");
    EXPECT_EQ(result.endReason, kx::EndReason::memoryLimit);
    ASSERT_TRUE(result.failure.has_value());
    EXPECT_EQ(result.failure->kind, KxJsFailure::Kind::LIMIT);
    EXPECT_EQ(result.failure->message, u"message");
    EXPECT_EQ(result.failure->line, 3);
    EXPECT_EQ(result.failure->column, 4);
    EXPECT_EQ(result.failure->endColumn, 5);
    EXPECT_TRUE(result.failure->isInCall);
    EXPECT_EQ(result.failure->sourceLine, u"line");
    ASSERT_EQ(result.failure->frames.size(), 2);
    EXPECT_EQ(result.failure->frames[0].function, u"f");
    EXPECT_EQ(result.failure->frames[1].column, 4);
}

TEST(Message, thatIsCutOffIsWrong) {
    auto const whole = bytesOf(fullResult());
    for (std::size_t length = 0; length < whole.size(); ++length) {
        std::vector<std::byte> const part(whole.begin(),
                                          whole.begin() + static_cast<std::ptrdiff_t>(length));
        kx::MessageReader reader(part);
        takeResult(reader);
        EXPECT_FALSE(reader.isRight()) << length;
    }
}

TEST(Message, withMoreThanItSaysIsWrong) {
    auto bytes = bytesOf(fullResult());
    bytes.push_back(std::byte{0});
    kx::MessageReader reader(bytes);
    takeResult(reader);
    EXPECT_FALSE(reader.isRight());
}

TEST(Message, withNumbersOutOfRangeIsWrong) {
    kx::CommandResult result = fullResult();
    result.endReason = kx::EndReason::workerEnded;
    EXPECT_FALSE([&] {
        auto const bytes = bytesOf(result);
        kx::MessageReader reader(bytes);
        takeResult(reader);
        return reader.isRight();
    }());
    for (auto const place : {-1, std::numeric_limits<std::int32_t>::min()}) {
        result = fullResult();
        result.failure->line = place;
        auto const bytes = bytesOf(result);
        kx::MessageReader reader(bytes);
        takeResult(reader);
        EXPECT_FALSE(reader.isRight()) << place;
    }
    result = fullResult();
    result.failure->frames.resize(33);
    auto const bytes = bytesOf(result);
    kx::MessageReader reader(bytes);
    takeResult(reader);
    EXPECT_FALSE(reader.isRight());
}

TEST(Message, withATextLongerThanItselfIsWrong) {
    kx::MessageWriter writer;
    writer.put(std::uint32_t{0xffffffff});
    writer.put(std::uint64_t{0});
    kx::MessageReader reader(writer.bytes());
    EXPECT_EQ(reader.takeText(), u"");
    EXPECT_FALSE(reader.isRight());
}

TEST(Message, carriesVariablesOfAllTypes) {
    for (KxJsVariable const& variable :
         {KxJsVariable(u"L", -5), KxJsVariable(u"D", -0.5), KxJsVariable(u"B", false),
          KxJsVariable(u"S", std::u16string(300, u'x'))}) {
        kx::MessageWriter writer;
        putVariable(writer, variable);
        kx::MessageReader reader(writer.bytes());
        KxJsVariable const copy = kx::takeVariable(reader);
        EXPECT_TRUE(reader.isRight());
        EXPECT_EQ(copy.getKey(), variable.getKey());
        EXPECT_EQ(copy.getType(), variable.getType());
        EXPECT_EQ(copy.getLongValue(), variable.getLongValue());
        EXPECT_EQ(copy.getDoubleValue(), variable.getDoubleValue());
        EXPECT_EQ(copy.getBooleanValue(), variable.getBooleanValue());
        EXPECT_EQ(copy.getStrValue(),
                  variable.getStrValue().substr(0, KxJsVariable::kMaxTextLength));
    }
}

TEST(Message, ofABlockOfRecordsHasDoneOneOrHasAnError) {
    auto const isRight = [](std::size_t records, std::u16string const& error) {
        kx::MessageWriter writer;
        putColumnReply(writer, {records, {}, error}, kx::EndReason::none);
        kx::MessageReader reader(writer.bytes());
        kx::RecentTexts texts;
        takeColumnReply(reader, 10, texts);
        return reader.isRight();
    };
    EXPECT_TRUE(isRight(1, u""));
    EXPECT_TRUE(isRight(10, u""));
    EXPECT_TRUE(isRight(0, u"ended"));
    EXPECT_FALSE(isRight(0, u""));
    EXPECT_FALSE(isRight(10, u"ended"));
    EXPECT_FALSE(isRight(11, u""));
}

TEST(Message, ofABlockOfRecordsTellsFailuresOfThoseThatAreDone) {
    auto const isRight = [](std::vector<std::size_t> const& records) {
        KxJsColumns::Outcome outcome;
        outcome.records = 5;
        for (std::size_t const record : records) outcome.failures.push_back({record, {}});
        kx::MessageWriter writer;
        putColumnReply(writer, outcome, kx::EndReason::none);
        kx::MessageReader reader(writer.bytes());
        kx::RecentTexts texts;
        takeColumnReply(reader, 10, texts);
        return reader.isRight();
    };
    EXPECT_TRUE(isRight({0, 4}));
    EXPECT_FALSE(isRight({5}));
    EXPECT_FALSE(isRight({3, 3}));
    EXPECT_FALSE(isRight({3, 2}));
}

}  // namespace
