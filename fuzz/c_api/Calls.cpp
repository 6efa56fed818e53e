// The steps on everything else.
#include <algorithm>
#include <cstring>

#include "Machine.h"
#include "support/Check.h"

namespace kx::fuzz {
namespace {

void create(Machine& machine, Step const& step) {
    kxjs_status status = KXJS_OK;
    switch (step.choice % 7) {
        case 0: {
            kxjs_text* made = nullptr;
            status = kxjs_text_create(&made);
            return machine.keep(step.a, Kind::text, status, made);
        }
        case 1: {
            kxjs_texts* made = nullptr;
            status = kxjs_texts_create(&made);
            return machine.keep(step.a, Kind::texts, status, made);
        }
        case 2: {
            kxjs_variable* made = nullptr;
            status = kxjs_variable_create(step.text.data(), step.text.size(), &made);
            machine.check(status, {});
            return machine.keep(step.a, Kind::variable, status, made);
        }
        case 3: {
            kxjs_columns* made = nullptr;
            status = kxjs_columns_create(machine.handle<kxjs_host>(step.b), &made);
            machine.check(status, {{step.b, Kind::host}});
            return machine.keep(step.a, Kind::columns, status, made);
        }
        case 4: {
            kxjs_translator* made = nullptr;
            status = kxjs_translator_create(&made);
            return machine.keep(step.a, Kind::translator, status, made);
        }
        case 5: {
            kxjs_findings* made = nullptr;
            status = kxjs_findings_create(&made);
            return machine.keep(step.a, Kind::findings, status, made);
        }
        default: {
            kxjs_functions* made = nullptr;
            status = kxjs_functions_create(static_cast<std::int32_t>(step.c) - 1, &made);
            machine.check(status, {});
            return machine.keep(step.a, Kind::functions, status, made);
        }
    }
}

void readText(Machine& machine, Step const& step) {
    auto* const text = machine.handle<kxjs_text>(step.a);
    char const* data = nullptr;
    std::uint16_t const* units = nullptr;
    std::size_t length = 0;
    kxjs_status const status = kxjs_text_utf8(text, &data, &length);
    machine.check(status, {{step.a, Kind::text}});
    if (status != KXJS_OK) return;
    check(std::memchr(data, 0, length + 1) != nullptr && data[length] == '\0', "a text's end");
    machine.check(kxjs_text_utf16(text, &units, &length), {{step.a, Kind::text}});
    check(std::all_of(units, units + length, [](auto unit) { return unit <= 0xFFFF; }), "units");
}

void useList(Machine& machine, Step const& step) {
    auto* const list = machine.handle<kxjs_texts>(step.a);
    Machine::Use const first{step.a, Kind::texts};
    auto const units = unitsOf(step);
    std::size_t const half = step.text.size() / 2;
    std::array<std::size_t, 4> const offsets{step.choice == 9 ? step.text.size() : 0, half, half,
                                             step.text.size()};
    char const* data = nullptr;
    std::uint16_t const* wide = nullptr;
    std::size_t const* found = nullptr;
    std::size_t count = 0;
    switch (step.choice % 6) {
        case 0:
            return machine.check(
                kxjs_texts_add(list, step.text.data(), lengthOf(step, step.text.size())), {first});
        case 1:
            return machine.check(kxjs_texts_add_utf16(list, units.data(), units.size()), {first});
        case 2:
            return machine.check(
                kxjs_texts_set_utf16(list, units.data(), offsets.data(), offsets.size() - 1),
                {first});
        case 3: {
            kxjs_status const status = kxjs_texts_utf8(list, &data, &found, &count);
            machine.check(status, {first});
            if (status == KXJS_OK) check(data[found[count]] == '\0', "the end of the last text");
            return;
        }
        case 4: {
            kxjs_status const status = kxjs_texts_separated_utf16(list, step.a, &wide, &count);
            machine.check(status, {first});
            if (status == KXJS_OK) check(wide[count] == 0, "the end of the separated texts");
            return;
        }
        default:
            return machine.check(
                kxjs_texts_set(list, step.text.data(), offsets.data(), offsets.size() - 1),
                {first});
    }
}

void useVariable(Machine& machine, Step const& step) {
    auto* const variable = machine.handle<kxjs_variable>(step.a);
    auto* const text = machine.handle<kxjs_text>(step.b);
    Machine::Use const first{step.a, Kind::variable};
    std::int32_t number = 0;
    switch (step.choice % 6) {
        case 0:
            return machine.check(kxjs_variable_set_int32(variable, 1), {first});
        case 1:
            return machine.check(kxjs_variable_set_text(variable, step.text.data(),
                                                        lengthOf(step, step.text.size())),
                                 {first});
        case 2:
            return machine.check(kxjs_variable_type(variable, &number), {first});
        case 3:
            return machine.check(kxjs_variable_to_text(variable, text),
                                 {first, {step.b, Kind::text}});
        default:
            return machine.check(kxjs_variable_set_double(variable, 1e300), {first});
    }
}

void useTranslator(Machine& machine, Step const& step) {
    auto* const translator = machine.handle<kxjs_translator>(step.a);
    auto* const text = machine.handle<kxjs_text>(step.b);
    auto* const findings = machine.handle<kxjs_findings>(step.c);
    Machine::Use const first{step.a, Kind::translator};
    char const* const data = step.text.data();
    std::size_t const length = lengthOf(step, step.text.size());
    std::int32_t verdict = 0;
    switch (step.choice % 7) {
        case 0:
            return machine.check(kxjs_translator_add_variable(translator, data, length,
                                                              static_cast<std::int32_t>(step.b)),
                                 {first});
        case 1:
            return machine.check(kxjs_translator_set_date_format(translator, data, length),
                                 {first});
        case 2:
            return machine.check(kxjs_translator_set_strict(translator, 1), {first});
        case 3:
            return machine.check(
                kxjs_translator_check(translator, data, length, &verdict, text, text, findings),
                {first, {step.b, Kind::text, true}, {step.c, Kind::findings, true}});
        default:
            return machine.check(
                kxjs_translator_translate(translator, data, length, text, findings, nullptr),
                {first, {step.b, Kind::text, true}, {step.c, Kind::findings, true}});
    }
}

void useFunctions(Machine& machine, Step const& step) {
    auto* const functions = machine.handle<kxjs_functions>(step.a);
    Machine::Use const first{step.a, Kind::functions};
    char const* const data = step.text.data();
    std::size_t const length = lengthOf(step, step.text.size());
    std::size_t index = step.c;
    switch (step.choice % 4) {
        case 0:
            return machine.check(kxjs_functions_add(functions, &index), {first});
        case 1:
            return machine.check(
                kxjs_functions_set_text(functions, index, static_cast<std::int32_t>(step.b), data,
                                        length),
                {first});
        case 2:
            return machine.check(
                kxjs_functions_add_parameter(functions, index, data, length, data, length),
                {first});
        default:
            return machine.check(
                kxjs_functions_text(functions, index, static_cast<std::int32_t>(step.choice),
                                    machine.handle<kxjs_text>(step.b)),
                {first, {step.b, Kind::text}});
    }
}

}  // namespace

bool runOtherCall(Machine& machine, Step const& step) {
    auto* const text = machine.handle<kxjs_text>(step.a);
    std::size_t const length = lengthOf(step, step.text.size());
    kxjs_finding finding{};
    finding.struct_size = sizeof finding;
    switch (step.operation) {
        case 'c':
            create(machine, step);
            return true;
        case 'y':
            readText(machine, step);
            return true;
        case 's':
            useList(machine, step);
            return true;
        case 'V':
            useVariable(machine, step);
            return true;
        case 'T':
            useTranslator(machine, step);
            return true;
        case 'F':
            machine.check(
                kxjs_findings_get(machine.handle<kxjs_findings>(step.a), step.c, &finding,
                                  machine.handle<kxjs_text>(step.b), nullptr, nullptr, nullptr),
                {{step.a, Kind::findings}, {step.b, Kind::text, true}});
            return true;
        case 'C':
            useFunctions(machine, step);
            return true;
        case 'k':
            machine.check(kxjs_convert(step.text.data(), length, text), {{step.a, Kind::text}});
            return true;
        case 'D':
            machine.check(
                kxjs_extract(step.text.data(), length, 50, nullptr,
                             machine.handle<kxjs_texts>(step.a), machine.handle<kxjs_text>(step.b)),
                {{step.a, Kind::texts}, {step.b, Kind::text, true}});
            return true;
        case 'R':
            machine.check(kxjs_run_time_part(text), {{step.a, Kind::text}});
            return true;
        default:
            return false;
    }
}

}  // namespace kx::fuzz
