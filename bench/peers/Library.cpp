// The library, through its public classes only.
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "convert/Converter.h"
#include "host/KxJsParser.h"
#include "peers/Peers.h"

namespace bench {

namespace {

class Library final : public Peer {
  public:
    std::string name() const override { return "library"; }
    std::string version() const override { return KXJS_VERSION; }
    bool can(Task, Formula const&) const override { return true; }

    Nanoseconds makeHosts(std::uint64_t count) override {
        dropHosts();
        return timed([&] {
            for (std::uint64_t i = 0; i < count; ++i) {
                hosts_.push_back(std::make_unique<KxJsParser>());
                hosts_.back()->initialize();
            }
        });
    }

    std::string resultInLastHost(std::string const& javaScript) override {
        KxJsParser& host = *hosts_.back();
        run(host, checked(host.parse(widen(javaScript), error_)));
        return result();
    }

    void dropHosts() override { hosts_.clear(); }

    Nanoseconds firstRuns(std::uint64_t count) override {
        return timed([&] {
            for (std::uint64_t i = 0; i < count; ++i) {
                KxJsParser host;
                host.initialize();
                bindAll(host, 0);
                run(host, host.parse(widen(formula_.javaScript), error_));
            }
        });
    }

    void use(Formula const& formula) override {
        setFormula(formula);
        host_.emplace();
        host_->initialize();
        bindAll(*host_, 0);
    }

    void compile() override { index_ = checked(host_->parse(widen(formula_.javaScript), error_)); }

    Nanoseconds execute(std::uint64_t first, std::uint64_t count) override {
        Variable const& changing = formula_.variables.front();
        std::u16string const name = widen(changing.name);
        bool const isChanging = changing.step != 0;
        return timed([&] {
            for (std::uint64_t i = 0; i < count; ++i) {
                if (isChanging) {
                    host_->addSetVariable(KxJsVariable(name, changing.numberAt(first + i)));
                }
                run(*host_, index_);
            }
        });
    }

    Nanoseconds parse(std::uint64_t first, std::uint64_t count) override {
        auto const texts = wideTexts(first, count);
        return timed([&] {
            for (std::u16string const& text : texts) index_ = host_->parse(text, error_);
        });
    }

    Nanoseconds parseAndRun(std::uint64_t first, std::uint64_t count) override {
        auto const texts = wideTexts(first, count);
        return timed([&] {
            for (std::u16string const& text : texts) run(*host_, host_->parse(text, error_));
        });
    }

    Nanoseconds oneShot(std::uint64_t first, std::uint64_t count) override {
        auto const texts = wideTexts(first, count);
        std::uint64_t number = first;
        return timed([&] {
            for (std::u16string const& text : texts) {
                bindAll(*host_, number++);
                run(*host_, host_->parse(text, error_));
            }
        });
    }

    void executeParsed() override { run(*host_, checked(index_)); }

    void forget() override {
        host_->reset();
        bindAll(*host_, 0);
    }

    Nanoseconds convert(std::string const& text, std::uint64_t count) override {
        std::u16string const formula = widen(text);
        return timed([&] {
            for (std::uint64_t i = 0; i < count; ++i) {
                result_ = Converter::_convert(formula.c_str());
            }
        });
    }

    std::string result() const override {
        if (!error_.empty()) throw std::runtime_error(narrow(error_));
        return narrow(result_);
    }

  private:
    std::vector<std::u16string> wideTexts(std::uint64_t first, std::uint64_t count) const {
        std::vector<std::u16string> texts;
        for (std::string const& text : unseenTexts(formula_.javaScript, first, count)) {
            texts.push_back(widen(text));
        }
        return texts;
    }

    /// The application's texts are UTF-16.
    struct WideVariable {
        Variable const* variable;
        std::u16string name;
        std::u16string text;
    };

    void setFormula(Formula const& formula) {
        formula_ = formula;
        variables_.clear();
        for (Variable const& variable : formula_.variables) {
            variables_.push_back({&variable, widen(variable.name), widen(variable.text)});
        }
    }

    void bindAll(KxJsParser& host, std::uint64_t run) const {
        for (auto const& [variable, name, text] : variables_) {
            if (variable->isText()) {
                host.addSetVariable(KxJsVariable(name, text));
            } else {
                host.addSetVariable(KxJsVariable(name, variable->numberAt(run)));
            }
        }
    }

    void run(KxJsParser& host, std::int32_t index) { result_ = host.execute(index, error_); }

    std::int32_t checked(std::int32_t index) const {
        if (index == -1) throw std::runtime_error(narrow(error_));
        return index;
    }

    std::vector<std::unique_ptr<KxJsParser>> hosts_;
    std::optional<KxJsParser> host_;
    Formula formula_;
    std::vector<WideVariable> variables_;  // of the formula
    std::int32_t index_ = 0;
    std::u16string error_;
    std::u16string result_;
};

}  // namespace

std::unique_ptr<Peer> makeLibraryPeer() { return std::make_unique<Library>(); }

}  // namespace bench
