#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "columns/ColumnsBackend.h"
#include "columns/KxJsColumns.h"
#include "isolated/IsolatedHost.h"

namespace kx {

/// What a KxJsColumns does over an isolated host. The worker has a KxJsColumns of its own, and gets
/// the records in blocks.
class IsolatedColumns final : public ColumnsBackend {
  public:
    IsolatedColumns(KxJsParser& parser, IsolatedHost& host);
    ~IsolatedColumns() override;

    bool compile(std::u16string const& source, std::u16string& error) override;
    KxJsColumns::Outcome evaluate(std::size_t count, ColumnResults const& results) override;

  private:
    struct Evaluation;
    struct Block;

    void forgetFormula() override { isCompiled_ = false; }
    // The worker has memory of its own, of the type that the formula was compiled for.
    void typeWasChanged() override { worker_ = 0; }

    bool compileInWorker(std::u16string& error);
    void run(Evaluation& evaluation);
    bool prepare(std::u16string& error);
    std::size_t mostRecords(std::size_t sharing, ColumnResults const& results) const;
    Block writeRequest(Evaluation& evaluation, std::size_t first, std::size_t size) const;
    void putValues(MessageWriter& writer, Evaluation const& evaluation, Block& block) const;
    template <class T>
    std::uint64_t placeOf(T const* values, std::size_t first, std::size_t last) const;
    std::uint64_t placeOf(TextResults const& results, std::size_t first, std::size_t last) const;
    void beginCall(Evaluation const& evaluation);
    std::optional<MessageReader> endCall(Evaluation& evaluation);
    static void takeReply(MessageReader& reader, Evaluation& evaluation, Block& block);
    bool takeResults(MessageReader& reader, Evaluation const& evaluation, Block const& block);
    bool goesOn(Evaluation& evaluation);
    void bindLastRecord(KxJsColumns::Outcome const& outcome);

    IsolatedHost& host_;
    std::uint32_t const number_;
    std::u16string source_;
    bool isCompiled_ = false;
    std::uint64_t worker_ = 0;  // that has compiled the formula
    std::uint64_t resets_ = 0;  // of the host when it was compiled
};

}  // namespace kx
