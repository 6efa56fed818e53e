#include "peers/Peers.h"

#include "library/Catalogues.h"
#include "library/KxJsFunction.h"
#include "library/Prelude.h"

namespace bench {

namespace {

void append(std::u16string& text, std::vector<KxJsFunction> const& catalogue) {
    for (KxJsFunction const& function : catalogue) {
        if (function.isComplete()) text += function.toJavaScript();
    }
}

std::string assemble() {
    std::u16string text;
    append(text, buildMathFunctions());
    append(text, buildStringFunctions());
    for (std::u16string const& statement : buildPrelude()) text += statement;
    append(text, buildMiscFunctions());
    return narrow(text);
}

}  // namespace

std::vector<PeerEntry> const& allPeers() {
    static std::vector<PeerEntry> const peers{
        {"library", "", makeLibraryPeer},
        {"raw V8", "", makeRawV8Peer},
    };
    return peers;
}

std::string const& builtInFunctions() {
    static std::string const text = assemble();
    return text;
}

}  // namespace bench
