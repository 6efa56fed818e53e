#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "columns/KxJsColumns.h"
#include "host/KxJsParser.h"
#include "isolated/Message.h"
#include "isolated/Protocol.h"

namespace kx {

/// Columns in a worker, with memory for the values of a block.
class WorkerColumns {
  public:
    explicit WorkerColumns(KxJsParser& host) : host_(host) {}

    /// Obeys COMPILE_COLUMNS, from the number of columns on.
    CommandResult compile(MessageReader& request);
    /// Obeys RUN_COLUMNS, from the type of the results on.
    void run(MessageReader& request, MessageWriter& reply);

  private:
    /// In the order of Column::Values; texts are always views.
    using Values = std::variant<std::vector<double>, std::vector<std::int32_t>,
                                std::vector<std::uint8_t>, std::vector<std::u16string>>;
    struct Column {
        std::u16string name;
        Values values;
    };

    void takeValues(MessageReader& request, std::size_t count);
    void bind(Column const& column);
    void putOutcome(MessageWriter& reply, KxJsColumns::Outcome const& outcome) const;

    KxJsParser& host_;
    std::unique_ptr<KxJsColumns> columns_;
    std::vector<Column> memory_;
};

}  // namespace kx
