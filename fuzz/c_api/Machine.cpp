#include "Machine.h"

#include <algorithm>

#include "support/Check.h"
#include "support/Units.h"

namespace kx::fuzz {
namespace {

constexpr std::size_t kMostSteps = 40;
constexpr std::size_t kMostDepth = 3;
constexpr std::size_t kHead = 5;

std::size_t digit(char byte, std::size_t below) {
    return static_cast<unsigned char>(byte - '0') % below;
}

kxjs_status freeAs(Kind kind, void* handle) {
    switch (kind) {
        case Kind::text:
            return kxjs_text_free(static_cast<kxjs_text*>(handle));
        case Kind::texts:
            return kxjs_texts_free(static_cast<kxjs_texts*>(handle));
        case Kind::host:
            return kxjs_host_free(static_cast<kxjs_host*>(handle));
        case Kind::variable:
            return kxjs_variable_free(static_cast<kxjs_variable*>(handle));
        case Kind::columns:
            return kxjs_columns_free(static_cast<kxjs_columns*>(handle));
        case Kind::translator:
            return kxjs_translator_free(static_cast<kxjs_translator*>(handle));
        case Kind::findings:
            return kxjs_findings_free(static_cast<kxjs_findings*>(handle));
        default:
            return kxjs_functions_free(static_cast<kxjs_functions*>(handle));
    }
}

}  // namespace

Machine::~Machine() {
    for (auto const& [handle, kind] : live_) {
        fuzz::check(freeAs(kind, handleOf<void>(handle)) == KXJS_OK, "a live handle can be freed");
        fuzz::check(freeAs(kind, handleOf<void>(handle)) == KXJS_BAD_HANDLE,
                    "a freed handle cannot");
    }
}

bool Machine::runNext() {
    if (input_.empty() || steps_ == kMostSteps || depth_ == kMostDepth) return false;
    ++steps_;
    std::string_view const line = input_.substr(0, input_.find('\x1e'));
    input_.remove_prefix(std::min(input_.size(), line.size() + 1));
    if (line.size() < kHead) return true;
    Step const step{line[0],
                    digit(line[1], kSlots),
                    digit(line[2], kSlots),
                    digit(line[3], kSlots),
                    static_cast<unsigned int>(digit(line[4], 16)),
                    line.substr(kHead)};
    ++depth_;  // a progress function runs steps too
    if (step.operation == 'f') {
        release(step);
    } else if (step.operation == 'z') {
        disturb(step);
    } else if (!runHostCall(*this, step)) {
        runOtherCall(*this, step);
    }
    --depth_;
    return true;
}

void Machine::release(Step const& step) {
    Kind const kind = static_cast<Kind>(step.choice % static_cast<unsigned int>(Kind::count));
    std::uintptr_t const handle = slots_[step.a];
    bool const isIt = isAlive({step.a, kind});
    kxjs_status const status = freeAs(kind, handleOf<void>(handle));
    if (handle == 0) {
        fuzz::check(status == KXJS_OK, "null can be freed");
    } else if (!isIt) {
        fuzz::check(status == KXJS_BAD_HANDLE, "a wrong handle cannot be freed");
    } else if (status == KXJS_OK) {
        live_.erase(handle);
    } else {
        fuzz::check(kind == Kind::columns && depth_ > 1 && status == KXJS_BUSY,
                    "only columns that are evaluated cannot be freed");
    }
}

void Machine::disturb(Step const& step) {
    switch (step.choice % 4) {
        case 0:
            slots_[step.a] = slots_[step.b];
            break;
        case 1:
            slots_[step.a] = slots_[step.b] ^ (std::uintptr_t{1} << (step.text.size() % 64));
            break;
        case 2:
            slots_[step.a] = 0;
            break;
        default:
            for (char const byte : step.text.substr(0, sizeof(std::uintptr_t))) {
                slots_[step.a] = slots_[step.a] << 8 | static_cast<unsigned char>(byte);
            }
    }
}

bool Machine::isAlive(Use const& use) const {
    if (slots_[use.slot] == 0) return use.mayBeNull;
    auto const found = live_.find(slots_[use.slot]);
    return found != live_.end() && found->second == use.kind;
}

bool Machine::areAlive(std::initializer_list<Use> uses) const {
    return std::all_of(uses.begin(), uses.end(), [this](Use const& use) { return isAlive(use); });
}

void Machine::checkStatus(kxjs_status status, bool areAlive) {
    fuzz::check(kxjs_status_text(status) != std::string_view("unknown status"), "a known status");
    fuzz::check(status != KXJS_INTERNAL_ERROR, "no mistake of the library");
    fuzz::check(status != KXJS_WRONG_THREAD, "there is one thread");
    if (areAlive) {
        fuzz::check(status != KXJS_BAD_HANDLE, "a good handle is taken");
    } else {
        fuzz::check(status >= KXJS_NULL_ARGUMENT, "a wrong handle is told");
    }
}

std::vector<std::uint16_t> unitsOf(Step const& step) {
    std::u16string const text = textOf(step.text);
    return {text.begin(), text.end()};
}

std::size_t lengthOf(Step const& step, std::size_t length) {
    if (step.choice == 15) return ~std::size_t{0};
    return step.choice == 14 ? KXJS_MAX_LENGTH + std::size_t{1} : length;
}

}  // namespace kx::fuzz
