#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "columns/ColumnFormula.h"
#include "columns/ColumnsBackend.h"
#include "columns/KxJsColumns.h"
#include "host/InProcessHost.h"

namespace kx {

/// What a KxJsColumns does over a host of this process: it holds the columns and the compiled
/// formula.
class InProcessColumns final : public ColumnsBackend {
  public:
    explicit InProcessColumns(KxJsParser& parser);
    ~InProcessColumns() override;
    InProcessColumns(InProcessColumns const&) = delete;
    InProcessColumns& operator=(InProcessColumns const&) = delete;

    bool compile(std::u16string const& source, std::u16string& error) override;
    KxJsColumns::Outcome evaluate(std::size_t count, ColumnResults const& results) override;

  private:
    void forgetFormula() override;
    void release(std::list<HostResources> resources) noexcept;

    InProcessHost& host_;
    std::shared_ptr<IsolateRecord> const record_;  // which may be left when the host is gone
    std::unique_ptr<ColumnFormula> formula_;
    std::list<HostResources> lastResources_;  // for the destructor, which must not allocate
};

}  // namespace kx
