#pragma once

#include <string>

#include "host/KxJsParser.h"
#include "support/Check.h"

namespace kx::fuzz {

/// A host that never runs the fuzzer's input. Hosts of a thread share an isolate, so damage that
/// another host did shows here.
class SaneHost {
  public:
    SaneHost() {
        host_.initialize();
        host_.addSetVariable(KxJsVariable(u"A", 5));
        std::u16string error;
        script_ = host_.parse(u"IIF(A>2,'OK','KO')+UPPERCASE('abc')+(A/2)", error);
        check(script_ == 0 && error.empty(), "the sane host cannot parse");
        checkNow();
    }

    /// A finding unless the host still gives the exact result.
    void checkNow() {
        std::u16string error;
        std::u16string const result = host_.execute(script_, error);
        checkEqual(error, u"", "the sane host's error");
        checkEqual(result, u"OKABC2.5", "the sane host's result");
    }

  private:
    KxJsParser host_;
    std::int32_t script_;
};

}  // namespace kx::fuzz
