// Formulas that no engine has seen before: compiled and kept, perhaps run, or bound, compiled and
// run once.
// Their results have few decimals or many; the last one needs V8.
#include "cases/Cases.h"

namespace bench {

namespace {

struct Shape {
    std::string name;
    Formula formula;
    bool needsV8 = false;
};

using Shapes = std::vector<Shape>;

Formula formulaOf(std::string const& javaScript, std::string const& lua,
                  std::string const& muParser) {
    return {javaScript, lua.empty() ? "" : "return " + lua, muParser};
}

Shapes allShapes() {
    std::string const few = "(PRICE*1.25+2.5)*(PRICE-3)+#######-PRICE";
    std::string const many = "(PRICE+COST)/7*1.19-#######/3";
    Shapes shapes = {
        {"few decimals", formulaOf(few, few, few)},
        {"many decimals", formulaOf(many, many, many)},
        {"condition", formulaOf("PRICE>COST?PRICE*0.93:#######/COST",
                                "PRICE>COST and PRICE*0.93 or #######/COST",
                                "PRICE>COST?PRICE*0.93:#######/COST")},
        {"text", formulaOf("NAME.substring(0,6)+'-'+NAME.length+'/'+#######",
                           "NAME:sub(1,6)..'-'..#NAME..'/'..#######", "")},
        {"text and condition",
         formulaOf("PRICE>#######?'more':NAME.charAt(2)+NAME.substring(4)",
                   "PRICE>####### and 'more' or NAME:sub(3,3)..NAME:sub(5)", "")},
        {"needs V8", formulaOf("Math.pow(PRICE,2)+#######", "PRICE^2+#######", "PRICE^2+#######"),
         true},
    };
    for (Shape& shape : shapes) {
        Formula& formula = shape.formula;
        formula.hasManyDecimals = shape.name == "many decimals" || shape.name == "condition";
        formula.variables = {{.name = "PRICE", .number = 12.75, .step = 0.25}};
        if (formula.javaScript.find("COST") != std::string::npos) {
            formula.variables.push_back({.name = "COST", .number = 14.5});
        }
        if (formula.javaScript.find("NAME") != std::string::npos) {
            formula.variables.push_back({.name = "NAME", .text = "Quarterly report"});
        }
    }
    return shapes;
}

/// A row for each shape. `work` is timed; `runSome` leaves a result to compare.
std::vector<Case> unseenCases(Shapes const& shapes, std::string const& title, Task task,
                              Nanoseconds (Peer::*work)(std::uint64_t, std::uint64_t),
                              void (*runSome)(Peer&)) {
    std::vector<Case> rows;
    for (Shape const& shape : shapes) {
        Case& row = rows.emplace_back();
        row.title = title + ", " + shape.name;
        row.task = task;
        row.formula = shape.formula;
        row.batch = 200;
        row.prepare = [formula = shape.formula](Peer& peer) { peer.use(formula); };
        row.goal = shape.needsV8 ? 1.1 : 0.15;
        row.work = [work](Peer& peer, std::uint64_t first, std::uint64_t count) {
            Nanoseconds const time = (peer.*work)(first, count);
            peer.forget();
            return time;
        };
        row.results = [runSome](Peer& peer) {
            runSome(peer);
            std::string text = peer.result();
            peer.forget();
            return text;
        };
    }
    return rows;
}

}  // namespace

std::vector<Case> parseCases() {
    auto const runSome = [](Peer& peer) {
        peer.parse(17, 3);
        peer.executeParsed();
    };
    std::vector<Case> rows = unseenCases(allShapes(), "parse", Task::parse, &Peer::parse, runSome);
    // What parse() leaves for the first run is in no other row.
    Shapes needingV8 = allShapes();
    std::erase_if(needingV8, [](Shape const& shape) { return !shape.needsV8; });
    auto const more = unseenCases(needingV8, "parse and first run", Task::parseAndRun,
                                  &Peer::parseAndRun, [](Peer& peer) { peer.parseAndRun(17, 3); });
    rows.insert(rows.end(), more.begin(), more.end());
    return rows;
}

std::vector<Case> oneShotCases() {
    return unseenCases(allShapes(), "one-shot", Task::oneShot, &Peer::oneShot,
                       [](Peer& peer) { peer.oneShot(23, 5); });
}

}  // namespace bench
