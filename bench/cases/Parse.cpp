// An unseen formula of 40 characters with one variable.
#include "cases/Cases.h"

namespace bench {

std::vector<Case> parseCases() {
    Case parse;
    parse.title = "parse";
    parse.task = Task::parse;
    parse.formula.javaScript = "(PRICE*1.25+2.5)*(PRICE-3)+#######-PRICE";
    parse.formula.muParser = parse.formula.javaScript;
    parse.formula.lua = "return " + parse.formula.javaScript;
    parse.formula.variables = {{.name = "PRICE", .number = 12.75}};
    parse.batch = 200;
    parse.prepare = [formula = parse.formula](Peer& peer) { peer.use(formula); };
    parse.work = [](Peer& peer, std::uint64_t first, std::uint64_t count) {
        Nanoseconds const time = peer.parse(first, count);
        peer.forget();
        return time;
    };
    parse.results = [](Peer& peer) {
        peer.parse(17, 3);
        peer.executeParsed();
        std::string text = peer.result();
        peer.forget();
        return text;
    };
    parse.goal = 1.1;
    return {parse};
}

}  // namespace bench
