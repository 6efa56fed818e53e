#include <memory>
#include <mujs.h>
#include <stdexcept>
#include <vector>

#include "peers/Peers.h"

namespace bench {

namespace {

struct FreeState {
    void operator()(js_State* state) const { js_freestate(state); }
};
using State = std::unique_ptr<js_State, FreeState>;

State makeState() { return State(js_newstate(nullptr, nullptr, 0)); }

void check(js_State* state, bool isFine) {
    if (!isFine) throw std::runtime_error(js_trystring(state, -1, "an error without text"));
}

/// Leaves the compiled function on the stack.
void compile(js_State* state, std::string const& text) {
    check(state, js_ploadstring(state, "formula", text.c_str()) == 0);
}

class MuJs final : public Peer {
  public:
    std::string name() const override { return "MuJS"; }
    std::string version() const override {
        return std::to_string(JS_VERSION_MAJOR) + "." + std::to_string(JS_VERSION_MINOR) + "." +
               std::to_string(JS_VERSION_PATCH);
    }
    bool can(Task task, Formula const& formula) const override {
        if (formula.hasManyDecimals) return false;
        return task != Task::convert && !isAgainstV8Alone(task);
    }

    Nanoseconds makeHosts(std::uint64_t count) override {
        dropHosts();
        std::string const& builtIns = builtInFunctions();
        return timed([&] {
            for (std::uint64_t i = 0; i < count; ++i) {
                hosts_.push_back(makeState());
                bench::compile(hosts_.back().get(), builtIns);
                run(hosts_.back().get());
            }
        });
    }

    std::string resultInLastHost(std::string const& javaScript) override {
        bench::compile(hosts_.back().get(), javaScript);
        run(hosts_.back().get());
        return result_;
    }

    void dropHosts() override { hosts_.clear(); }

    void use(Formula const& formula) override {
        references_.clear();
        state_ = makeState();
        formula_ = formula;
        bindAll(0);
    }

    void compile() override {
        bench::compile(state_.get(), formula_.javaScript);
        references_.emplace_back(js_ref(state_.get()));
    }

    Nanoseconds execute(std::uint64_t first, std::uint64_t count) override {
        js_State* const state = state_.get();
        Variable const& changing = formula_.variables.front();
        js_getregistry(state, references_.back().c_str());
        Nanoseconds const time = timed([&] {
            for (std::uint64_t i = 0; i < count; ++i) {
                if (changing.step != 0) bind(changing, first + i);
                js_copy(state, -1);
                run(state);
            }
        });
        js_pop(state, 1);
        return time;
    }

    Nanoseconds parse(std::uint64_t first, std::uint64_t count) override {
        auto const texts = unseenTexts(formula_.javaScript, first, count);
        references_.reserve(references_.size() + count);
        return timed([&] {
            for (std::string const& text : texts) {
                bench::compile(state_.get(), text);
                references_.emplace_back(js_ref(state_.get()));
            }
        });
    }

    Nanoseconds oneShot(std::uint64_t first, std::uint64_t count) override {
        auto const texts = unseenTexts(formula_.javaScript, first, count);
        std::uint64_t number = first;
        return timed([&] {
            for (std::string const& text : texts) {
                bindAll(number++);
                bench::compile(state_.get(), text);
                run(state_.get());
            }
        });
    }

    void executeParsed() override { execute(0, 1); }

    void forget() override {
        for (std::string const& reference : references_) js_unref(state_.get(), reference.c_str());
        references_.clear();
    }

    std::string result() const override { return result_; }

  private:
    void bindAll(std::uint64_t run) {
        for (Variable const& variable : formula_.variables) bind(variable, run);
    }

    void bind(Variable const& variable, std::uint64_t run) {
        if (variable.isText()) {
            js_pushlstring(state_.get(), variable.text.data(),
                           static_cast<int>(variable.text.size()));
        } else {
            js_pushnumber(state_.get(), variable.numberAt(run));
        }
        js_setglobal(state_.get(), variable.name.c_str());
    }

    /// Calls the function on the stack and takes it away.
    void run(js_State* state) {
        js_pushundefined(state);
        check(state, js_pcall(state, 0) == 0);
        result_ = js_trystring(state, -1, "");
        js_pop(state, 1);
    }

    std::vector<State> hosts_;
    State state_;
    std::vector<std::string> references_;  // to what is compiled
    Formula formula_;
    std::string result_;
};

}  // namespace

std::unique_ptr<Peer> makeMuJsPeer() { return std::make_unique<MuJs>(); }

}  // namespace bench
