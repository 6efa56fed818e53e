#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "kxjsparser.h"

namespace kx::fuzz {

/// What a handle is for.
enum class Kind { text, texts, host, variable, columns, translator, findings, functions, count };

/// One line of the input: what is done, with which slots, and a text.
///
///     OPERATION SLOT SLOT SLOT CHOICE TEXT
///
/// The first five are one byte each.
struct Step {
    char operation = ' ';
    std::size_t a = 0;
    std::size_t b = 0;
    std::size_t c = 0;
    unsigned int choice = 0;
    std::string_view text;
};

/// A number as a handle.
template <class Handle>
Handle* handleOf(std::uintptr_t number) {
    return reinterpret_cast<Handle*>(number);  // NOLINT(performance-no-int-to-ptr)
}

/// Handles in slots, some of them wrong, and the knowledge which are alive.
class Machine {
  public:
    static constexpr std::size_t kSlots = 10;
    static constexpr std::size_t kRecords = 256;

    /// A handle that a call gets, as it needs it.
    struct Use {
        std::size_t slot;
        Kind kind;
        bool mayBeNull = false;
    };

    explicit Machine(std::string_view input) : input_(input) {}
    ~Machine();
    Machine(Machine const&) = delete;
    Machine& operator=(Machine const&) = delete;

    /// Runs the next step. False at the end of the input, and after many steps.
    bool runNext();

    template <class Handle>
    Handle* handle(std::size_t slot) const {
        return handleOf<Handle>(slots_[slot]);
    }
    /// Puts what a call has made into a slot.
    template <class Handle>
    void keep(std::size_t slot, Kind kind, kxjs_status status, Handle* made) {
        if (status != KXJS_OK) return;
        slots_[slot] = reinterpret_cast<std::uintptr_t>(made);
        live_[slots_[slot]] = kind;
    }
    void release(Step const& step);
    /// Makes the slot's handle a wrong one, mostly.
    void disturb(Step const& step);

    /// Whether all handles are good.
    bool areAlive(std::initializer_list<Use> uses) const;
    /// A finding unless the status fits to the handles: a call with a wrong one does not succeed.
    static void checkStatus(kxjs_status status, bool areAlive);
    void check(kxjs_status status, std::initializer_list<Use> uses) const {
        checkStatus(status, areAlive(uses));
    }

    /// Memory that columns are bound to and results go to.
    /// @{
    std::vector<double> doubles = std::vector<double>(kRecords, 1.5);
    std::vector<std::int32_t> wholes = std::vector<std::int32_t>(kRecords, -3);
    std::vector<std::uint8_t> bytes = std::vector<std::uint8_t>(kRecords, 1);
    std::vector<kxjs_span_utf16> spans;
    std::vector<double> results = std::vector<double>(kRecords);
    std::vector<std::uint8_t> truths = std::vector<std::uint8_t>(kRecords);
    /// @}
    std::size_t hosts = 0;  ///< that were made: they cost most

  private:
    bool isAlive(Use const& use) const;

    std::string_view input_;
    std::size_t steps_ = 0;
    std::size_t depth_ = 0;
    std::array<std::uintptr_t, kSlots> slots_{};
    std::map<std::uintptr_t, Kind> live_;
};

/// The text of a step as UTF-16, in memory of its own.
std::vector<std::uint16_t> unitsOf(Step const& step);
/// The text's length; rarely a length that is wrong in a way that has to be told.
std::size_t lengthOf(Step const& step, std::size_t length);

/// Run a step on the machine. False where it is none of theirs.
/// @{
bool runHostCall(Machine& machine, Step const& step);
bool runOtherCall(Machine& machine, Step const& step);
/// @}

}  // namespace kx::fuzz
