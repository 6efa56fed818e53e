#pragma once

#include <string_view>

#include "Objects.h"

namespace kx::test {

/// Columns over a host of their own.
class Table {
  public:
    Table() { EXPECT_EQ(kxjs_columns_create(host_, &columns_), KXJS_OK); }
    ~Table() { EXPECT_EQ(kxjs_columns_free(columns_), KXJS_OK); }
    Table(Table const&) = delete;
    Table& operator=(Table const&) = delete;

    kxjs_host* host() const { return host_; }
    operator kxjs_columns*() const { return columns_; }

    kxjs_status compile(std::string_view source) const {
        return kxjs_columns_compile(columns_, source.data(), source.size(), nullptr);
    }
    std::size_t failures() const {
        std::size_t count = 0;
        EXPECT_EQ(kxjs_columns_failure_count(columns_, &count), KXJS_OK);
        return count;
    }

  private:
    Host host_;
    kxjs_columns* columns_ = nullptr;
};

}  // namespace kx::test
