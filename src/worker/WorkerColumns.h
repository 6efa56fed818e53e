#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "columns/KxJsColumns.h"
#include "host/KxJsParser.h"
#include "isolated/Message.h"
#include "isolated/Protocol.h"

namespace kx {

/// Columns in a worker. Numbers and truth values are read and written in place. A block of records
/// that takes long is ended early, so that the application can see how far it is.
class WorkerColumns {
  public:
    /// `area` is that of the channel, `shared` is memory of the application's, or null.
    WorkerColumns(KxJsParser& host, std::byte* area, std::byte* shared)
        : host_(host), area_(area), shared_(shared) {}

    /// Obeys compileColumns, from the number of columns on.
    CommandResult compile(MessageReader& request);
    /// Obeys runColumns, from the type of the results on.
    void run(MessageReader& request, MessageWriter& reply);

  private:
    /// As the position of a type in Column::Values.
    enum class Type : std::uint8_t { numbers, wholeNumbers, booleans, texts, textViews };
    /// As the position of a type in ColumnResults.
    enum class ResultType : std::uint8_t { texts, numbers, booleans };
    struct Column {
        std::u16string name;
        Type type;
        std::vector<std::u16string> texts = {};
    };

    std::byte* takePlace(MessageReader& request) const;
    void takeValues(MessageReader& request, std::size_t count);
    void bind(Column const& column, std::byte const* values);
    template <class Results>
    KxJsColumns::Outcome evaluate(std::size_t count, Results&& results, MessageWriter& reply);

    KxJsParser& host_;
    std::byte* area_;
    std::byte* shared_;
    std::unique_ptr<KxJsColumns> columns_;
    std::vector<Column> bound_;
    std::chrono::steady_clock::time_point blockEnd_{};
};

}  // namespace kx
