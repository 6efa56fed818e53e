#pragma once

#include <cstddef>
#include <string>

#include "columns/Column.h"
#include "columns/KxJsColumns.h"

namespace kx {

/// What a KxJsColumns does over one kind of host. Members mean what KxJsColumns says.
class ColumnsBackend {
  public:
    ColumnsBackend() = default;
    virtual ~ColumnsBackend() = default;
    ColumnsBackend(ColumnsBackend const&) = delete;
    ColumnsBackend& operator=(ColumnsBackend const&) = delete;

    virtual void bind(std::u16string const& name, Column::Values values) = 0;
    virtual bool compile(std::u16string const& source, std::u16string& error) = 0;
    virtual KxJsColumns::Outcome evaluate(std::size_t count, ColumnResults const& results) = 0;
    virtual void setProgress(KxJsColumns::Progress progress) = 0;
};

}  // namespace kx
