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
    auto const numbers = [](std::string const& text, std::string const& lua) {
        Formula formula{text, "return " + lua, text};
        formula.variables = {{.name = "A", .number = 3.25}, {.name = "B", .number = 7.125}};
        return formula;
    };
    // So no peer can take the text from a cache, as V8 does for a number that it has seen.
    auto const changing = [](Formula formula) {
        formula.variables.front().step = 0.37;
        return formula;
    };
    auto const text = [](std::string const& javaScript, std::string const& lua) {
        Formula formula{javaScript, "return " + lua};
        formula.variables = {{.name = "S", .text = "Quarterly report"}};
        return formula;
    };
    Formula const few = numbers("A*B+1.5", "A*B+1.5");
    Formula many = numbers("A/B*1.19+A", "A/B*1.19+A");
    many.hasManyDecimals = true;
    Formula condition = numbers("A>B*3?A*0.93:B/A", "A>B*3 and A*0.93 or B/A");
    condition.hasManyDecimals = true;
    Formula power = numbers("Math.pow(A,2)+B", "A^2+B");
    power.muParser = "A^2+B";
    power.variables.front().step = 0.25;
    return {executeCase("execute, new value, few decimals", changing(few), 0.35),
            executeCase("execute, new value, many decimals", changing(many), 0.35),
            executeCase("execute, new value, condition", changing(condition), 0.35),
            executeCase("execute, same values, few decimals", few, 0.5),
            executeCase("execute, same values, many decimals", many, 0.5),
            executeCase("execute, text, part and length",
                        text("S.substring(0,6)+'-'+S.length", "S:sub(1,6)..'-'..#S"), 0.55),
            executeCase("execute, text, letters and case",
                        text("S.charAt(0)+S.substring(3,7).toUpperCase()",
                             "S:sub(1,1)..S:sub(4,7):upper()"),
                        0.55),
            executeCase("execute, new value, needs V8", power, 1.1)};
}

}  // namespace bench
