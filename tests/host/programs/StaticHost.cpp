// A host that is a static object, made before main() and destroyed after it.
#include <string>

#include "host/KxJsParser.h"

namespace {

KxJsParser staticHost;  // NOLINT(cert-err58-cpp)

}  // namespace

int main() {
    staticHost.initialize();
    staticHost.addSetVariable(KxJsVariable(u"A", 5));
    std::u16string error;
    std::u16string const result = staticHost.execute(staticHost.parse(u"A+1", error), error);
    static KxJsParser laterHost;
    laterHost.initialize();
    return result == u"6" && error.empty() ? 0 : 1;
}
