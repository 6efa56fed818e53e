#include <duktape.h>
#include <memory>
#include <stdexcept>
#include <vector>

#include "peers/Peers.h"

namespace bench {

namespace {

struct DestroyHeap {
    void operator()(duk_context* context) const { duk_destroy_heap(context); }
};
using Heap = std::unique_ptr<duk_context, DestroyHeap>;

Heap makeHeap() { return Heap(duk_create_heap_default()); }

void check(duk_context* context, bool isFine) {
    if (!isFine) throw std::runtime_error(duk_safe_to_string(context, -1));
}

/// Leaves the compiled function on the stack.
void compile(duk_context* context, std::string const& text) {
    auto const flags = static_cast<duk_uint_t>(DUK_COMPILE_EVAL);
    check(context, duk_pcompile_lstring(context, flags, text.data(), text.size()) == 0);
}

/// The built-in functions in the engine's compiled form, made once.
std::string const& compiledBuiltIns() {
    static std::string const bytes = [] {
        Heap const heap = makeHeap();
        compile(heap.get(), builtInFunctions());
        duk_dump_function(heap.get());
        duk_size_t size = 0;
        auto const* const data = static_cast<char const*>(duk_get_buffer(heap.get(), -1, &size));
        return std::string(data, size);
    }();
    return bytes;
}

class Duktape final : public Peer {
  public:
    std::string name() const override { return "Duktape"; }
    std::string version() const override {
        return std::to_string(DUK_VERSION / 10000) + "." + std::to_string(DUK_VERSION / 100 % 100) +
               "." + std::to_string(DUK_VERSION % 100);
    }
    bool can(Task task, Formula const&) const override {
        return task != Task::convert && !isAgainstV8Alone(task);
    }

    Nanoseconds makeHosts(std::uint64_t count) override {
        dropHosts();
        std::string const& builtIns = compiledBuiltIns();
        return timed([&] {
            for (std::uint64_t i = 0; i < count; ++i) {
                hosts_.push_back(makeHeap());
                duk_context* const context = hosts_.back().get();
                void* const copy = duk_push_fixed_buffer(context, builtIns.size());
                builtIns.copy(static_cast<char*>(copy), builtIns.size());
                duk_load_function(context);
                check(context, duk_pcall(context, 0) == DUK_EXEC_SUCCESS);
                duk_pop(context);
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
        heap_ = makeHeap();
        formula_ = formula;
        bindAll(0);
        base_ = duk_get_top(heap_.get());
    }

    void compile() override { bench::compile(heap_.get(), formula_.javaScript); }

    Nanoseconds execute(std::uint64_t first, std::uint64_t count) override {
        duk_context* const context = heap_.get();
        Variable const& changing = formula_.variables.front();
        return timed([&] {
            for (std::uint64_t i = 0; i < count; ++i) {
                if (changing.step != 0) bind(changing, first + i);
                duk_dup_top(context);
                run(context);
            }
        });
    }

    Nanoseconds parse(std::uint64_t first, std::uint64_t count) override {
        auto const texts = unseenTexts(formula_.javaScript, first, count);
        duk_require_stack(heap_.get(), static_cast<duk_idx_t>(count + 16));
        return timed([&] {
            for (std::string const& text : texts) bench::compile(heap_.get(), text);
        });
    }

    Nanoseconds oneShot(std::uint64_t first, std::uint64_t count) override {
        auto const texts = unseenTexts(formula_.javaScript, first, count);
        std::uint64_t number = first;
        return timed([&] {
            for (std::string const& text : texts) {
                bindAll(number++);
                bench::compile(heap_.get(), text);
                run(heap_.get());
            }
        });
    }

    void executeParsed() override { execute(0, 1); }
    void forget() override { duk_set_top(heap_.get(), base_); }
    std::string result() const override { return result_; }

  private:
    void bindAll(std::uint64_t run) {
        for (Variable const& variable : formula_.variables) bind(variable, run);
    }

    void bind(Variable const& variable, std::uint64_t run) {
        if (variable.isText()) {
            duk_push_lstring(heap_.get(), variable.text.data(), variable.text.size());
        } else {
            duk_push_number(heap_.get(), variable.numberAt(run));
        }
        duk_put_global_lstring(heap_.get(), variable.name.data(), variable.name.size());
    }

    /// Calls the function on the stack and takes it away.
    void run(duk_context* context) {
        check(context, duk_pcall(context, 0) == DUK_EXEC_SUCCESS);
        duk_size_t size = 0;
        char const* const text = duk_safe_to_lstring(context, -1, &size);
        result_.assign(text, size);
        duk_pop(context);
    }

    std::vector<Heap> hosts_;
    Heap heap_;  // what is compiled lies on its stack, the newest on top
    duk_idx_t base_ = 0;
    Formula formula_;
    std::string result_;
};

}  // namespace

std::unique_ptr<Peer> makeDuktapePeer() { return std::make_unique<Duktape>(); }

}  // namespace bench
