// An evaluator of numeric expressions: no scripts, no texts, no functions in its formulas.
#include <map>
#include <memory>
#include <muParser.h>
#include <vector>

#include "peers/NumberText.h"
#include "peers/Peers.h"

namespace bench {

namespace {

class MuParser final : public Peer {
  public:
    std::string name() const override { return "muParser"; }
    std::string version() const override { return mu::Parser().GetVersion(mu::pviBRIEF); }
    bool can(Task task, Formula const& formula) const override {
        return (task == Task::parse || task == Task::execute || task == Task::oneShot) &&
               !formula.muParser.empty();
    }

    void use(Formula const& formula) override {
        formula_ = formula;
        parsed_.clear();
        pattern_ = mu::Parser();
        for (Variable const& variable : formula.variables) {
            pattern_.DefineVar(variable.name, &values_[variable.name]);
        }
        bindAll(0);
    }

    void compile() override { keep(formula_.muParser); }

    Nanoseconds execute(std::uint64_t first, std::uint64_t count) override {
        Variable const& changing = formula_.variables.front();
        double& value = values_[changing.name];
        mu::Parser const& parser = *parsed_.back();
        return timed([&] {
            for (std::uint64_t i = 0; i < count; ++i) {
                value = changing.numberAt(first + i);
                assignNumber(result_, parser.Eval());
            }
        });
    }

    Nanoseconds parse(std::uint64_t first, std::uint64_t count) override {
        auto const texts = unseenTexts(formula_.muParser, first, count);
        return timed([&] {
            for (std::string const& text : texts) keep(text);
        });
    }

    Nanoseconds oneShot(std::uint64_t first, std::uint64_t count) override {
        auto const texts = unseenTexts(formula_.muParser, first, count);
        std::uint64_t number = first;
        return timed([&] {
            for (std::string const& text : texts) {
                bindAll(number++);
                pattern_.SetExpr(text);
                assignNumber(result_, pattern_.Eval());
            }
        });
    }

    void executeParsed() override { assignNumber(result_, parsed_.back()->Eval()); }
    void forget() override { parsed_.clear(); }
    std::string result() const override { return result_; }

  private:
    void bindAll(std::uint64_t run) {
        for (Variable const& variable : formula_.variables) {
            values_[variable.name] = variable.numberAt(run);
        }
    }

    /// A parser holds one formula, and compiles it when it evaluates it for the first time.
    void keep(std::string const& text) {
        parsed_.push_back(std::make_unique<mu::Parser>(pattern_));
        parsed_.back()->SetExpr(text);
        parsed_.back()->Eval();
    }

    Formula formula_;
    std::map<std::string, double> values_;
    mu::Parser pattern_;
    std::vector<std::unique_ptr<mu::Parser>> parsed_;
    std::string result_;
};

}  // namespace

std::unique_ptr<Peer> makeMuParserPeer() { return std::make_unique<MuParser>(); }

}  // namespace bench
