#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "c/HandleTable.h"
#include "c/kxjs_columns.h"
#include "columns/KxJsColumns.h"
#include "host/KxJsParser.h"
#include "library/KxJsFunction.h"
#include "translate/KxJsTranslator.h"

// The objects behind the handles.

namespace kx::c {

/// A text, with its UTF-8 form where that was asked for.
class Text {
  public:
    static constexpr Kind kKind = Kind::text;

    void set(std::u16string text) {
        utf16_ = std::move(text);
        hasUtf8_ = false;
    }
    std::u16string const& utf16() const { return utf16_; }
    std::string const& utf8();

  private:
    std::u16string utf16_;
    std::string utf8_;
    bool hasUtf8_ = false;
};

/// A list of texts, as one text.
class Texts {
  public:
    static constexpr Kind kKind = Kind::texts;
    using Joined = KxJsColumns::JoinedTexts;

    /// UTF-8 has its own offsets.
    struct Utf8 {
        std::string data;
        std::vector<std::size_t> offsets;  ///< empty where nothing was joined yet
    };

    /// An evaluation reads the list, which others may read too.
    class Reading {
      public:
        explicit Reading(std::shared_ptr<Texts> texts);
        ~Reading() { --texts_->readers_; }
        Reading(Reading const&) = delete;
        Reading& operator=(Reading const&) = delete;

      private:
        std::shared_ptr<Texts> texts_;
    };

    /// An evaluation is going to replace the list.
    class Writing {
      public:
        explicit Writing(std::shared_ptr<Texts> texts);
        ~Writing() { texts_->isWritten_ = false; }
        Writing(Writing const&) = delete;
        Writing& operator=(Writing const&) = delete;

        void replace(Joined items) const {
            texts_->isWritten_ = false;
            texts_->change() = std::move(items);
        }

      private:
        std::shared_ptr<Texts> texts_;
    };

    Joined const& items() const { return items_; }
    /// The items, to be changed. This and what follows leaves with KXJS_BUSY where an evaluation
    /// uses the list.
    Joined& change();
    void set(std::vector<std::u16string> const& items);
    Joined const& utf16() const;
    Utf8 const& utf8();
    /// All items with `separator` between two; null where an item contains it.
    std::u16string const* separated(char16_t separator);

  private:
    Joined items_;
    Utf8 utf8_;
    std::u16string separated_;
    int readers_ = 0;
    bool isWritten_ = false;
};

class Host {
  public:
    static constexpr Kind kKind = Kind::host;

    Host() = default;
    explicit Host(KxJsIsolation const& isolation) : parser(isolation) {}

    /// Keeps columns that another thread frees, since the host's thread may be using the host.
    void leave(std::list<KxJsColumns>& columns) noexcept {
        std::lock_guard const lock(mutex_);
        left_.splice(left_.end(), columns);
    }
    /// Frees them, on the host's thread.
    void freeLeftColumns() {
        std::list<KxJsColumns> left;
        std::lock_guard const lock(mutex_);
        left.swap(left_);
    }

    KxJsParser parser;
    std::size_t resets = 0;  ///< each takes the columns' formulas

  private:
    std::mutex mutex_;
    std::list<KxJsColumns> left_;  // after the parser, which outlives them
};

struct Variable {
    static constexpr Kind kKind = Kind::variable;
    std::u16string key;
    KxJsVariable variable;  ///< has the key from its first value on

    template <class Value>
    void set(Value value) {
        if (variable.getType() == KxJsVariable::TYPE_OF_VAR_UNDEFINED) {
            variable = KxJsVariable(key, std::move(value));
        } else {
            variable.setValue(std::move(value));
        }
    }
};

struct Columns {
    static constexpr Kind kKind = Kind::columns;

    struct Numbers {};  ///< that need no look before an evaluation
    struct Bools {
        std::uint8_t const* values;
    };
    struct Spans {
        kxjs_span_utf16 const* values;
    };
    struct Bound {
        using Values = std::variant<Numbers, Bools, Spans, std::shared_ptr<Texts>>;
        std::u16string name;
        Values values;
        std::size_t count = 0;
    };

    explicit Columns(std::shared_ptr<Host> itsHost) : host(std::move(itsHost)) {}
    ~Columns();
    Columns(Columns const&) = delete;
    Columns& operator=(Columns const&) = delete;

    std::shared_ptr<Host> host;    ///< before the columns, which it outlives
    std::list<KxJsColumns> owned;  ///< one, which the host can take over
    KxJsColumns& columns = owned.emplace_back(host->parser);
    std::vector<Bound> bound;
    std::vector<KxJsColumns::Failure> failures;
    bool isCompiled = false;
    std::size_t resets = 0;  ///< of the host, when the formula was compiled
    bool isEvaluating = false;
};

/// A translator whose settings can change.
class Translator {
  public:
    static constexpr Kind kKind = Kind::translator;

    template <class Change>
    void set(Change change) {
        std::lock_guard const lock(mutex_);
        change(options_);
        made_ = nullptr;
    }
    /// The translator with the present settings, made where they have changed.
    std::shared_ptr<KxJsTranslator const> get() {
        std::lock_guard const lock(mutex_);
        if (made_ == nullptr) made_ = std::make_shared<KxJsTranslator const>(options_);
        return made_;
    }

  private:
    std::mutex mutex_;
    KxJsTranslator::Options options_;
    std::shared_ptr<KxJsTranslator const> made_;
};

struct Findings {
    static constexpr Kind kKind = Kind::findings;
    std::vector<KxJsTranslator::Damage> items;  ///< findings too, which have fewer members
};

struct Functions {
    static constexpr Kind kKind = Kind::functions;
    std::vector<KxJsFunction> records;
};

}  // namespace kx::c
