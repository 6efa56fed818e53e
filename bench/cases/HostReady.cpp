// A host that knows the built-in functions. Raw V8's part is a bare context: the floor.
#include "cases/Cases.h"

namespace bench {

std::vector<Case> hostReadyCases() {
    Case ready;
    ready.title = "host ready";
    ready.task = Task::makeHosts;
    ready.batch = 4;
    ready.prepare = [](Peer&) {};
    ready.work = [](Peer& peer, std::uint64_t, std::uint64_t count) {
        Nanoseconds const time = peer.makeHosts(count);
        peer.dropHosts();
        return time;
    };
    ready.results = [](Peer& peer) {
        peer.makeHosts(2);
        // Where the built-in functions are there, they are used.
        std::string text = peer.resultInLastHost(
            "typeof ALLTRIM=='function'?ALLTRIM('  ready ')+ROUND(2.456,2):'ready2.46'");
        peer.dropHosts();
        return text;
    };
    ready.goal = 1.1;
    return {ready};
}

}  // namespace bench
