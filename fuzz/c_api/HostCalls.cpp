// The steps on hosts and columns.
#include <algorithm>
#include <cstring>

#include "Machine.h"
#include "support/Check.h"

namespace kx::fuzz {
namespace {

constexpr std::int64_t kTimeLimit = 50;  // ms
constexpr std::uint64_t kMemoryLimit = std::uint64_t{32} << 20;
constexpr std::size_t kMostHosts = 3;
constexpr std::int32_t kUntouched = 77;

/// A structure with a size of its own, and memory behind it.
template <class Struct>
struct Sized {
    alignas(Struct) std::array<unsigned char, 2048> memory{};
    Struct* get(unsigned int choice) {
        static constexpr std::array<std::size_t, 4> kSizes{sizeof(Struct), sizeof(Struct) + 8, 7,
                                                           ~std::size_t{0}};
        auto* const given = reinterpret_cast<Struct*>(memory.data());
        given->struct_size = kSizes[choice % kSizes.size()];
        return given;
    }
};

void createHost(Machine& machine, Step const& step) {
    if (machine.hosts == kMostHosts) return;
    kxjs_host* host = nullptr;
    kxjs_status const status = kxjs_host_create(&host);
    machine.check(status, {});
    machine.keep(step.a, Kind::host, status, host);
    check(kxjs_host_set_time_limit(host, kTimeLimit) == KXJS_OK, "a time limit");
    check(kxjs_host_set_memory_limit(host, kMemoryLimit) == KXJS_OK, "a memory limit");
    ++machine.hosts;
}

void setVariable(Machine& machine, Step const& step) {
    auto* const host = machine.handle<kxjs_host>(step.a);
    std::size_t const sign = std::min(step.text.find('='), step.text.size());
    std::string_view const key = step.text.substr(0, sign);
    std::string_view const value = step.text.substr(std::min(sign + 1, step.text.size()));
    auto const units = unitsOf(step);
    std::size_t const length = lengthOf(step, key.size());
    std::int32_t type = 0;
    switch (step.choice % 10) {
        case 0:
            return machine.check(kxjs_host_set_int32(host, key.data(), length, 7),
                                 {{step.a, Kind::host}});
        case 1:
            return machine.check(kxjs_host_set_double(host, key.data(), length, 0.5),
                                 {{step.a, Kind::host}});
        case 2:
            return machine.check(kxjs_host_set_bool(host, key.data(), length, 5),
                                 {{step.a, Kind::host}});
        case 3:
            return machine.check(kxjs_host_set_int32_utf16(host, units.data(), sign, 7),
                                 {{step.a, Kind::host}});
        case 4:
            return machine.check(kxjs_host_variable_type(host, key.data(), length, &type),
                                 {{step.a, Kind::host}});
        case 5:
            return machine.check(
                kxjs_host_set_text_utf16(host, units.data(), sign, units.data(), units.size()),
                {{step.a, Kind::host}});
        case 6:
            return machine.check(
                kxjs_host_set_variable(host, machine.handle<kxjs_variable>(step.b)),
                {{step.a, Kind::host}, {step.b, Kind::variable}});
        default:
            return machine.check(
                kxjs_host_set_text(host, key.data(), key.size(), value.data(), value.size()),
                {{step.a, Kind::host}});
    }
}

void runFormula(Machine& machine, Step const& step) {
    auto* const host = machine.handle<kxjs_host>(step.a);
    auto* const result = machine.handle<kxjs_text>(step.b);
    auto* const error = machine.handle<kxjs_text>(step.c);
    Machine::Use const first{step.a, Kind::host};
    Machine::Use const second{step.b, Kind::text, true};
    Machine::Use const third{step.c, Kind::text, true};
    auto const units = unitsOf(step);
    std::size_t const length = lengthOf(step, step.text.size());
    kxjs_status status = KXJS_OK;
    std::int32_t script = kUntouched;
    switch (step.operation) {
        case 'p':
            status = kxjs_host_parse(host, step.text.data(), length, &script, error);
            machine.check(status, {first, third});
            return check(status == KXJS_OK               ? script >= 0
                         : status == KXJS_FORMULA_FAILED ? script == -1
                                                         : script == kUntouched,
                         "a script's number");
        case 'P':
            return machine.check(
                kxjs_host_parse_utf16(host, units.data(), units.size(), &script, error),
                {first, third});
        case 'x':
            return machine.check(
                kxjs_host_execute(host, static_cast<std::int32_t>(step.choice) - 2, result, error),
                {first, second, third});
        case 'e':
            return machine.check(kxjs_host_evaluate(host, step.text.data(), length, result, error),
                                 {first, second, third});
        default:
            return machine.check(
                kxjs_host_evaluate_utf16(host, units.data(), units.size(), result, error),
                {first, second, third});
    }
}

void readFailure(Machine& machine, Step const& step) {
    auto* const host = machine.handle<kxjs_host>(step.a);
    auto* const text = machine.handle<kxjs_text>(step.b);
    Sized<kxjs_failure> failure;
    Sized<kxjs_frame> frame;
    machine.check(kxjs_host_failure(host, failure.get(step.choice), text, text),
                  {{step.a, Kind::host}, {step.b, Kind::text, true}});
    machine.check(kxjs_host_failure_frame(host, static_cast<std::int32_t>(step.choice) - 1,
                                          frame.get(step.choice / 4), text),
                  {{step.a, Kind::host}, {step.b, Kind::text, true}});
}

void bindColumn(Machine& machine, Step const& step) {
    auto* const columns = machine.handle<kxjs_columns>(step.a);
    Machine::Use const first{step.a, Kind::columns};
    char const* const name = step.text.data();
    std::size_t const length = lengthOf(step, step.text.size());
    std::size_t const count = Machine::kRecords - step.c;
    switch (step.choice % 6) {
        case 0:
            return machine.check(
                kxjs_columns_bind_double(columns, name, length, machine.doubles.data(), count),
                {first});
        case 1:
            return machine.check(
                kxjs_columns_bind_int32(columns, name, length, machine.wholes.data(), count),
                {first});
        case 2:
            machine.bytes[0] = static_cast<std::uint8_t>(step.c);
            return machine.check(
                kxjs_columns_bind_bool(columns, name, length, machine.bytes.data(), count),
                {first});
        case 3:
            machine.spans.assign(Machine::kRecords, {nullptr, step.c});
            return machine.check(
                kxjs_columns_bind_spans(columns, name, length, machine.spans.data(), count),
                {first});
        default:
            return machine.check(
                kxjs_columns_bind_texts(columns, name, length, machine.handle<kxjs_texts>(step.b)),
                {first, {step.b, Kind::texts}});
    }
}

void evaluateColumns(Machine& machine, Step const& step) {
    auto* const columns = machine.handle<kxjs_columns>(step.a);
    auto* const error = machine.handle<kxjs_text>(step.c);
    Machine::Use const first{step.a, Kind::columns};
    Machine::Use const third{step.c, Kind::text, true};
    std::size_t const count =
        step.choice == 15 ? ~std::size_t{0} : std::min(step.text.size() * 4, Machine::kRecords);
    std::size_t records = 0;
    // A progress function may free handles, so they are looked at before.
    bool areAlive = machine.areAlive({first});
    bool const isErrorAlive = machine.areAlive({third});
    kxjs_status status = KXJS_OK;
    switch (step.choice % 3) {
        case 0:
            status = kxjs_columns_evaluate_double(columns, machine.results.data(), count, &records,
                                                  nullptr);
            break;
        case 1:
            areAlive = areAlive && isErrorAlive;
            status =
                kxjs_columns_evaluate_bool(columns, machine.truths.data(), count, &records, error);
            break;
        default:
            areAlive = areAlive && isErrorAlive && machine.areAlive({{step.b, Kind::texts}});
            status =
                kxjs_columns_evaluate_texts(columns, machine.handle<kxjs_texts>(step.b),
                                            std::min(count, Machine::kRecords), &records, error);
    }
    Machine::checkStatus(status, areAlive);
    check(records <= Machine::kRecords, "as many records as there are");
}

void readColumnFailures(Machine& machine, Step const& step) {
    auto* const columns = machine.handle<kxjs_columns>(step.a);
    auto* const text = machine.handle<kxjs_text>(step.b);
    Machine::Use const first{step.a, Kind::columns};
    std::size_t count = 0;
    machine.check(kxjs_columns_failure_count(columns, &count), {first});
    check(count <= Machine::kRecords, "as many failures as records");
    std::vector<std::size_t> records(count);
    machine.check(kxjs_columns_failure_records(columns, records.data(), count), {first});
    Sized<kxjs_column_failure> failure;
    machine.check(kxjs_columns_failure(columns, step.c, failure.get(step.choice), text, text),
                  {first, {step.b, Kind::text, true}});
}

std::int32_t progress(void* context, std::size_t records) {
    check(records <= Machine::kRecords, "as many records as there are");
    return static_cast<Machine*>(context)->runNext() ? 1 : 0;
}

}  // namespace

bool runHostCall(Machine& machine, Step const& step) {
    auto* const host = machine.handle<kxjs_host>(step.a);
    auto* const columns = machine.handle<kxjs_columns>(step.a);
    Machine::Use const isHost{step.a, Kind::host};
    Machine::Use const areColumns{step.a, Kind::columns};
    switch (step.operation) {
        case 'H':
            createHost(machine, step);
            return true;
        case 'i':
            machine.check(kxjs_host_initialize(host), {isHost});
            return true;
        case 'r':
            machine.check(kxjs_host_reset(host), {isHost});
            return true;
        case 't':
            machine.check(kxjs_host_terminate(host), {isHost});
            return true;
        case 'n':
            machine.check(kxjs_host_set_native_evaluation(host, step.choice % 2 == 0 ? 0 : 1),
                          {isHost});
            return true;
        case 'm':
            machine.check(kxjs_host_set_time_limit(host, 1 + step.choice), {isHost});
            return true;
        case 'v':
            setVariable(machine, step);
            return true;
        case 'p':
        case 'P':
        case 'x':
        case 'e':
        case 'E':
            runFormula(machine, step);
            return true;
        case 'l':
            readFailure(machine, step);
            return true;
        case 'b':
            bindColumn(machine, step);
            return true;
        case 'o':
            machine.check(
                kxjs_columns_compile(columns, step.text.data(), lengthOf(step, step.text.size()),
                                     machine.handle<kxjs_text>(step.b)),
                {areColumns, {step.b, Kind::text, true}});
            return true;
        case 'u':
            evaluateColumns(machine, step);
            return true;
        case 'q':
            readColumnFailures(machine, step);
            return true;
        case 'g':
            machine.check(kxjs_columns_set_progress(
                              columns, step.choice % 2 == 0 ? progress : nullptr, &machine),
                          {areColumns});
            return true;
        default:
            return false;
    }
}

}  // namespace kx::fuzz
