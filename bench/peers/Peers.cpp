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

// The build says which engines it has found.
std::vector<PeerEntry> const& allPeers() {
    static std::vector<PeerEntry> const peers{
        {"library", "", makeLibraryPeer},
        {"raw V8", "", makeRawV8Peer},
#ifdef KXJS_HAS_DUKTAPE
        {"Duktape", "duktape-dev", makeDuktapePeer},
#else
        {"Duktape", "duktape-dev", nullptr},
#endif
#ifdef KXJS_HAS_MUJS
        {"MuJS", "libmujs-dev", makeMuJsPeer},
#else
        {"MuJS", "libmujs-dev", nullptr},
#endif
#ifdef KXJS_HAS_SPIDERMONKEY
        {"SpiderMonkey", "libmozjs-102-dev", makeSpiderMonkeyPeer},
#else
        {"SpiderMonkey", "libmozjs-102-dev", nullptr},
#endif
        {"Node vm", "nodejs", makeNodePeer},
#ifdef KXJS_HAS_LUAJIT
        {"LuaJIT", "libluajit-5.1-dev", makeLuaJitPeer},
#else
        {"LuaJIT", "libluajit-5.1-dev", nullptr},
#endif
#ifdef KXJS_HAS_MUPARSER
        {"muParser", "libmuparser-dev", makeMuParserPeer},
#else
        {"muParser", "libmuparser-dev", nullptr},
#endif
    };
    return peers;
}

std::string const& builtInFunctions() {
    static std::string const text = assemble();
    return text;
}

}  // namespace bench
