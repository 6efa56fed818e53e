// A formula that is used once: its variable is bound, it is compiled, it runs.
#include "cases/Cases.h"

namespace bench {

std::vector<Case> oneShotCases() {
    Case oneShot = parseCases().front();
    oneShot.title = "one-shot: bind, parse, execute";
    oneShot.task = Task::oneShot;
    oneShot.formula.variables.front().step = 0.25;
    oneShot.prepare = [formula = oneShot.formula](Peer& peer) { peer.use(formula); };
    oneShot.work = [](Peer& peer, std::uint64_t first, std::uint64_t count) {
        Nanoseconds const time = peer.oneShot(first, count);
        peer.forget();
        return time;
    };
    oneShot.results = [](Peer& peer) {
        peer.oneShot(23, 5);
        std::string text = peer.result();
        peer.forget();
        return text;
    };
    oneShot.goal = 1.0;
    return {oneShot};
}

}  // namespace bench
