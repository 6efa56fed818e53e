// A host that knows the built-in functions, alone and with its first formula that needs V8. Raw
// V8's part is a bare context: the floor.
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
    ready.goal = 0.1;

    Case first;
    first.title = "host ready, and its first formula for V8";
    first.task = Task::firstRun;
    first.formula.javaScript = "Math.pow(A,2)+B";
    first.formula.variables = {{.name = "A", .number = 3.25}, {.name = "B", .number = 7.125}};
    first.batch = 4;
    first.prepare = [formula = first.formula](Peer& peer) { peer.use(formula); };
    first.work = [](Peer& peer, std::uint64_t, std::uint64_t count) {
        return peer.firstRuns(count);
    };
    first.results = [](Peer& peer) {
        peer.firstRuns(2);
        return peer.result();
    };
    first.goal = 1.25;
    return {ready, first};
}

}  // namespace bench
