// A loop in Lua, over the application's memory for numbers and over tables for texts.
#include <lua.hpp>
#include <memory>
#include <stdexcept>

#include "columns/ColumnPeer.h"

namespace bench {

namespace {

std::string scriptFor(ColumnFormula const& formula) {
    if (formula.isText) {
        return "return function(names, texts) for i=1,#names do local NAME=names[i] texts[i]=" +
               formula.lua + " end end";
    }
    return "local ffi=require('ffi') return function(n,a,b,results)"
           " a=ffi.cast('const double*',a) b=ffi.cast('const double*',b)"
           " results=ffi.cast('double*',results)"
           " for i=0,n-1 do local A,B=a[i],b[i] results[i]=" +
           formula.lua + " end end";
}

void check(lua_State* state, int status) {
    if (status != 0) throw std::runtime_error(lua_tostring(state, -1));
}

void runNumbers(lua_State* state, ColumnData& data) {
    lua_pushvalue(state, -1);
    lua_pushnumber(state, static_cast<double>(data.a.size()));
    lua_pushlightuserdata(state, data.a.data());
    lua_pushlightuserdata(state, data.b.data());
    lua_pushlightuserdata(state, data.numbers.data());
    check(state, lua_pcall(state, 4, 0, 0));
}

void runTexts(lua_State* state, ColumnData& data) {
    int const count = static_cast<int>(data.names.size());
    lua_pushvalue(state, -1);
    lua_createtable(state, count, 0);
    for (int i = 0; i < count; ++i) {
        std::string const& name = data.names[static_cast<std::size_t>(i)];
        lua_pushlstring(state, name.data(), name.size());
        lua_rawseti(state, -2, i + 1);
    }
    lua_createtable(state, count, 0);
    lua_pushvalue(state, -1);
    lua_insert(state, -4);  // kept below the call
    check(state, lua_pcall(state, 2, 0, 0));
    for (int i = 0; i < count; ++i) {
        lua_rawgeti(state, -1, i + 1);
        std::size_t size = 0;
        char const* const text = lua_tolstring(state, -1, &size);
        data.texts[static_cast<std::size_t>(i)].assign(text, size);
        lua_pop(state, 1);
    }
    lua_pop(state, 1);
}

}  // namespace

ColumnWork columnsOfLuaJit(ColumnFormula const& formula, ColumnData& data) {
    std::shared_ptr<lua_State> const state(luaL_newstate(), lua_close);
    luaL_openlibs(state.get());
    check(state.get(), luaL_dostring(state.get(), scriptFor(formula).c_str()));
    return [&data, state, isText = formula.isText] {
        isText ? runTexts(state.get(), data) : runNumbers(state.get(), data);
    };
}

}  // namespace bench
