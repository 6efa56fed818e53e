// Running a compiled formula and taking the text of its result.
#include "cases/Cases.h"

namespace bench {

namespace {

Case executeCase(std::string title, Formula formula, double goal) {
    Case execute;
    execute.title = std::move(title);
    execute.task = Task::execute;
    execute.formula = std::move(formula);
    execute.batch = 1000;
    execute.prepare = [formula = execute.formula](Peer& peer) {
        peer.use(formula);
        peer.compile();
    };
    execute.work = [](Peer& peer, std::uint64_t first, std::uint64_t count) {
        return peer.execute(first, count);
    };
    execute.results = [](Peer& peer) {
        std::string texts;
        for (std::uint64_t run : {0, 1, 2, 500}) {
            peer.execute(run, 1);
            texts += peer.result() + " ";
        }
        return texts;
    };
    execute.goal = goal;
    return execute;
}

}  // namespace

std::vector<Case> executeCases() {
    Formula numbers;
    numbers.javaScript = numbers.muParser = "A*B+1.5";
    numbers.lua = "return A*B+1.5";
    numbers.variables = {{.name = "A", .number = 3.25}, {.name = "B", .number = 7.125}};

    // So no peer can take the text from a cache, as V8 does for a number that it has seen.
    Formula changing = numbers;
    changing.variables.front().step = 0.37;

    Formula strings;
    strings.javaScript = "S.substring(0,6)+'-'+S.length";
    strings.lua = "return S:sub(1,6)..'-'..#S";
    strings.variables = {{.name = "S", .text = "Quarterly report"}};

    return {executeCase("execute, two numbers, new value", changing, 0.65),
            executeCase("execute, two numbers, same values", numbers, 0),
            executeCase("execute, string work", strings, 1.1)};
}

}  // namespace bench
