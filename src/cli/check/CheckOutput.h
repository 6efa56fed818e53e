#pragma once

#include <string>

#include "cli/check/CheckRun.h"
#include "cli/check/Summary.h"

namespace kx {

/// Writes findings to standard output: for people, as CSV or as JSON.
class CheckOutput {
  public:
    explicit CheckOutput(CheckOptions const& options) : options_(options) {}

    void begin();
    void write(std::u16string const& formula, std::size_t line, KxJsTranslator::Check const& check);
    /// The summary goes to standard error where standard output has data for programs.
    void end(Summary const& summary);

  private:
    void writeCsv(std::u16string const& formula, std::size_t line,
                  KxJsTranslator::Check const& check);
    void writeText(std::u16string const& formula, std::size_t line,
                   KxJsTranslator::Check const& check);

    CheckOptions const& options_;
    bool isFirst_ = true;
};

}  // namespace kx
