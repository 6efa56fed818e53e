#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "columns/KxJsColumns.h"
#include "host/KxJsParser.h"
#include "isolated/ColumnArea.h"
#include "isolated/Message.h"
#include "isolated/Protocol.h"

namespace kx {

/// Columns in a worker. Numbers and truth values are read and written in place.
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

    std::byte* takePlace(MessageReader& request, ColumnArea& area, std::size_t size);
    void takeValues(MessageReader& request, ColumnArea& area, std::size_t count);
    void bind(Column const& column, std::byte const* values);
    void putOutcome(MessageWriter& reply, KxJsColumns::Outcome const& outcome) const;

    KxJsParser& host_;
    std::byte* area_;
    std::byte* shared_;
    std::unique_ptr<KxJsColumns> columns_;
    std::vector<Column> bound_;
};

}  // namespace kx
