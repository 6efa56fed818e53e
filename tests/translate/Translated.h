#pragma once

#include <string>
#include <string_view>

#include "host/KxJsParser.h"
#include "translate/KxJsTranslator.h"

/// A host that runs translations.
class Translated {
  public:
    explicit Translated(KxJsTranslator::Options const& options = {});

    KxJsParser& host() { return host_; }
    /// The result, or "error: " and the error's text, or "error: " and the code of a finding.
    std::string run(std::string_view formula);

  private:
    KxJsParser host_;
    KxJsTranslator translator_;
};
