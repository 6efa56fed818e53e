// Another language with a compiler at run time; its formulas are the same work in Lua.
#include <lua.hpp>
#include <memory>
#include <stdexcept>
#include <vector>

#include "peers/NumberText.h"
#include "peers/Peers.h"

namespace bench {

namespace {

struct CloseState {
    void operator()(lua_State* state) const { lua_close(state); }
};

void check(lua_State* state, int status) {
    if (status != 0) throw std::runtime_error(lua_tostring(state, -1));
}

class LuaJit final : public Peer {
  public:
    std::string name() const override { return "LuaJIT"; }
    std::string version() const override { return LUAJIT_VERSION + sizeof("LuaJIT ") - 1; }
    bool can(Task task, Formula const& formula) const override {
        return (task == Task::parse || task == Task::execute || task == Task::oneShot) &&
               !formula.lua.empty();
    }

    void use(Formula const& formula) override {
        references_.clear();
        state_.reset(luaL_newstate());
        luaL_openlibs(state_.get());
        formula_ = formula;
        bindAll(0);
    }

    void compile() override { keep(formula_.lua); }

    Nanoseconds execute(std::uint64_t first, std::uint64_t count) override {
        lua_State* const state = state_.get();
        Variable const& changing = formula_.variables.front();
        lua_rawgeti(state, LUA_REGISTRYINDEX, references_.back());
        Nanoseconds const time = timed([&] {
            for (std::uint64_t i = 0; i < count; ++i) {
                if (changing.step != 0) bind(changing, first + i);
                lua_pushvalue(state, -1);
                run();
            }
        });
        lua_pop(state, 1);
        return time;
    }

    Nanoseconds parse(std::uint64_t first, std::uint64_t count) override {
        auto const texts = unseenTexts(formula_.lua, first, count);
        return timed([&] {
            for (std::string const& text : texts) keep(text);
        });
    }

    Nanoseconds oneShot(std::uint64_t first, std::uint64_t count) override {
        auto const texts = unseenTexts(formula_.lua, first, count);
        std::uint64_t number = first;
        return timed([&] {
            for (std::string const& text : texts) {
                bindAll(number++);
                load(text);
                run();
            }
        });
    }

    void executeParsed() override { execute(0, 1); }

    void forget() override {
        for (int const reference : references_) {
            luaL_unref(state_.get(), LUA_REGISTRYINDEX, reference);
        }
        references_.clear();
    }

    std::string result() const override { return result_; }

  private:
    void bindAll(std::uint64_t run) {
        for (Variable const& variable : formula_.variables) bind(variable, run);
    }

    void bind(Variable const& variable, std::uint64_t run) {
        if (variable.isText()) {
            lua_pushlstring(state_.get(), variable.text.data(), variable.text.size());
        } else {
            lua_pushnumber(state_.get(), variable.numberAt(run));
        }
        lua_setglobal(state_.get(), variable.name.c_str());
    }

    void load(std::string const& text) {
        check(state_.get(), luaL_loadbuffer(state_.get(), text.data(), text.size(), "formula"));
    }

    void keep(std::string const& text) {
        load(text);
        references_.push_back(luaL_ref(state_.get(), LUA_REGISTRYINDEX));
    }

    /// Calls the function on the stack and takes it away.
    void run() {
        lua_State* const state = state_.get();
        check(state, lua_pcall(state, 0, 1, 0));
        if (lua_type(state, -1) == LUA_TNUMBER) {
            assignNumber(result_, lua_tonumber(state, -1));  // Lua writes 14 digits only
        } else {
            std::size_t size = 0;
            char const* const text = lua_tolstring(state, -1, &size);
            result_.assign(text, size);
        }
        lua_pop(state, 1);
    }

    std::unique_ptr<lua_State, CloseState> state_;
    std::vector<int> references_;  // to what is compiled
    Formula formula_;
    std::string result_;
};

}  // namespace

std::unique_ptr<Peer> makeLuaJitPeer() { return std::make_unique<LuaJit>(); }

}  // namespace bench
