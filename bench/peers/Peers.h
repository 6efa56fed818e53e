#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Peer.h"

namespace bench {

std::unique_ptr<Peer> makeLibraryPeer();
std::unique_ptr<Peer> makeRawV8Peer();
std::unique_ptr<Peer> makeDuktapePeer();
std::unique_ptr<Peer> makeMuJsPeer();
std::unique_ptr<Peer> makeMuParserPeer();
std::unique_ptr<Peer> makeSpiderMonkeyPeer();
std::unique_ptr<Peer> makeLuaJitPeer();
/// Null where the machine has no `node`.
std::unique_ptr<Peer> makeNodePeer();

/// A peer and how to make it.
struct PeerEntry {
    std::string name;
    std::string package;                        ///< what to install, where the peer is missing
    std::unique_ptr<Peer> (*make)() = nullptr;  ///< null where the build did not find it
};

/// The library, raw V8, then the others.
std::vector<PeerEntry> const& allPeers();

/// The JavaScript text that defines the built-in functions, for peers that need it.
std::string const& builtInFunctions();

}  // namespace bench
