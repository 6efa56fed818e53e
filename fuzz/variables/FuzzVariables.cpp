// Binds variables of any key, type and value, and compares what scripts read with what they must
// read.
//
// Input: a byte of choices, a byte that says how often the key is repeated, a length byte, the key,
// the value. Texts are wide or narrow (support/Units.h) as the choices say.
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "host/KxJsParser.h"
#include "support/Check.h"
#include "support/SaneHost.h"
#include "support/Units.h"

namespace {

using kx::fuzz::check;
using kx::fuzz::checkEqual;

constexpr unsigned int kTypes = 5;
constexpr std::size_t kSeenUnits = 255;

struct Input {
    unsigned int choices = 0;
    std::u16string key;
    std::string_view value;

    bool isWide() const { return (choices & 0x80U) != 0; }
    std::u16string text(std::string_view bytes) const {
        return isWide() ? kx::fuzz::wideTextOf(bytes) : kx::fuzz::textOf(bytes);
    }
};

std::optional<Input> split(std::string_view bytes) {
    constexpr std::size_t kHead = 3;
    if (bytes.size() < kHead) return std::nullopt;
    auto const byte = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    Input input;
    input.choices = byte(0);
    bytes.remove_prefix(kHead);
    std::size_t const length = std::min<std::size_t>(bytes.size(), bytes.data()[-1] & 0x3f);
    std::u16string const key = input.text(bytes.substr(0, length));
    // Mostly once; now and then many times.
    auto const repetition = static_cast<unsigned char>(bytes.data()[-2]);
    for (int times = repetition < 0xf0 ? 1 : 1 << std::min(repetition & 0xfU, 12U); times > 0;
         --times) {
        input.key += key;
    }
    input.value = bytes.substr(length);
    return input;
}

template <class Number>
Number numberOf(std::string_view bytes) {
    Number number{};
    std::memcpy(&number, bytes.data(), std::min(sizeof number, bytes.size()));
    return number;
}

/// A value of the type that `choice` asks for.
KxJsVariable variableOf(Input const& input, unsigned int choice) {
    switch (choice % kTypes) {
        case KxJsVariable::TYPE_OF_VAR_LONG:
            return {input.key, numberOf<std::int32_t>(input.value)};
        case KxJsVariable::TYPE_OF_VAR_DOUBLE:
            return {input.key, numberOf<double>(input.value)};
        case KxJsVariable::TYPE_OF_VAR_STRING:
            return {input.key, input.text(input.value)};
        default:
            return {input.key, input.value.size() % 2 == 1};
    }
}

/// The part of a text that scripts see.
std::u16string seen(std::u16string text) {
    text.resize(std::min(text.size(), kSeenUnits));
    return text.substr(0, text.find(u'\0'));
}

class Reader {
  public:
    explicit Reader(bool withLibrary) {
        if (withLibrary) host_.initialize();
    }

    KxJsParser& host() { return host_; }

    std::u16string run(std::u16string const& source) {
        std::u16string error;
        std::int32_t const index = host_.parse(source, error);
        if (index == -1) return u"no parse: " + error;
        return execute(index);
    }

    std::u16string execute(std::int32_t index) {
        std::u16string error;
        std::u16string result = host_.execute(index, error);
        if (error.empty() || error == u"Not A Number") return result;
        return u"error: " + error;
    }

  private:
    KxJsParser host_;
};

/// Whether scripts can assign to `key` and read it back: only then does the prologue compile.
bool isName(std::u16string const& key) {
    bool const isPlain = std::all_of(key.begin(), key.end(), [](char16_t unit) {
        return unit >= 0x80 || unit == u'_' || unit == u'$' || (unit >= u'0' && unit <= u'9') ||
               (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
    });
    // Assigning to these changes nothing, or the global object's prototype.
    static constexpr std::array<std::u16string_view, 4> kFixed{u"NaN", u"Infinity", u"undefined",
                                                               u"__proto__"};
    if (!isPlain || std::find(kFixed.begin(), kFixed.end(), key) != kFixed.end()) return false;
    static Reader plain(false);
    std::u16string const source = u"(function(){var " + key + u"=1;" + key + u"=2;return " + key +
                                  u"+Object.keys({" + key + u":1})[0]})()";
    bool const result = plain.run(source) == u"2" + key;
    plain.host().reset();
    return result;
}

/// Checks what a script has read, given as its text.
void checkValue(std::u16string const& result, KxJsVariable const& variable) {
    switch (variable.getType()) {
        case KxJsVariable::TYPE_OF_VAR_STRING:
            checkEqual(result, seen(variable.getStrValue()), "a text variable");
            checkEqual(variable.valueToString(), seen(variable.getStrValue()), "its own text");
            break;
        case KxJsVariable::TYPE_OF_VAR_LONG: {
            std::string const digits = std::to_string(variable.getLongValue());
            checkEqual(result, std::u16string(digits.begin(), digits.end()), "a whole number");
            checkEqual(variable.valueToString(), result, "its own text");
            break;
        }
        case KxJsVariable::TYPE_OF_VAR_DOUBLE: {
            double const number = variable.getDoubleValue();
            if (!std::isfinite(number)) {
                checkEqual(result,
                           std::isnan(number) ? u"NaN"
                           : number < 0       ? u"-Infinity"
                                              : u"Infinity",
                           "a special number");
                break;
            }
            // Which shortest text V8 writes is not checked; that it is this number is.
            std::string const digits(result.begin(), result.end());
            char* end = nullptr;
            check(!digits.empty() && std::strtod(digits.c_str(), &end) == number && *end == '\0',
                  "a double's text names it");
            break;
        }
        default:
            checkEqual(result, variable.getBooleanValue() ? u"true" : u"false", "a truth value");
            checkEqual(variable.valueToString(), result, "its own text");
    }
}

/// Reads by name, before and after changes of the value.
void checkByName(Reader& reader, Input const& input) {
    KxJsParser& host = reader.host();
    std::u16string error;
    std::int32_t const value = host.parse(input.key, error);
    // V8's own conversion, beside the library's.
    std::int32_t const text = host.parse(u"''+" + input.key, error);
    check(value == 0 && text == 1, "a variable's name is a script");
    for (unsigned int change = 0; change < 3; ++change) {
        KxJsVariable const variable = variableOf(input, (input.choices >> change) + change);
        check(host.addSetVariable(variable), "a bound key can be set again");
        // A text that is read again is no longer V8's newest.
        for (int times = 0; times < 3; ++times) {
            std::u16string const result = reader.execute(value);
            checkValue(result, variable);
            checkEqual(reader.execute(text), result, "the engine's text");
        }
    }
    host.reset();
    // Not typeof: the global object inherits some names.
    checkEqual(reader.run(u"({}).hasOwnProperty.call(this,'" + input.key + u"')"), u"false",
               "a variable after a reset");
}

/// Reads by carrier, as needed for keys that are no names.
void checkByCarrier(Reader& reader, Input const& input, KxJsVariable const& variable) {
    static std::u16string const source =
        u"(function(all){for(var i=0;i<all.length;i++){var c=all[i];"
        u"if(c.length>4&&c.indexOf('___')>=0&&typeof this[c]=='object'){"
        u"return '='+this[c].ouraccessor}}return 'none'})(Object.getOwnPropertyNames(this))";
    if (source.find(input.key) != std::u16string::npos) return;
    std::u16string error;
    // Makes the carrier, even where the source does not compile.
    static_cast<void>(reader.host().parse(u"/*" + input.key + u"*/", error));
    std::u16string const result = reader.run(source);
    check(result.starts_with(u'='), "every key has a carrier");
    checkValue(result.substr(1), variable);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::optional<Input> const input = split({reinterpret_cast<char const*>(data), size});
    if (!input) return 0;
    static kx::fuzz::SaneHost sane;
    Reader reader((input->choices & 0x40U) != 0);
    KxJsVariable const variable = variableOf(*input, input->choices);
    bool const isBlank = input->key.find_first_not_of(u" \t\n\v\f\r") == std::u16string::npos;
    bool const isBound = reader.host().addSetVariable(variable);
    check(isBound == (!isBlank && input->key != u"ouraccessor"), "which keys are taken");
    check(reader.host().variableExist(input->key) == isBound, "whether a key is bound");
    check(reader.host().getVariableType(input->key) ==
              (isBound ? variable.getType() : KxJsVariable::TYPE_OF_VAR_UNDEFINED),
          "a variable's type");
    if (isBound && isName(input->key)) {
        checkByName(reader, *input);
    } else if (isBound) {
        checkByCarrier(reader, *input, variable);
        reader.host().reset();
        check(!reader.host().variableExist(input->key), "a variable after a reset");
    }
    sane.checkNow();
    return 0;
}
