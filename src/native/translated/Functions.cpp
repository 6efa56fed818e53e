#include "native/translated/Functions.h"

#include <algorithm>
#include <array>

#include "native/FunctionEntries.h"

namespace kx {

namespace {

using namespace std::string_view_literals;

/// Functions that V8 runs, without effects.
constexpr std::array kOthers = {
    u"acos"sv,    u"addbs"sv,     u"asin"sv,    u"atan"sv,      u"atan2"sv,        u"atc"sv,
    u"bitand"sv,  u"bitor"sv,     u"bitxor"sv,  u"cdow"sv,      u"cmonth"sv,       u"cos"sv,
    u"cot"sv,     u"ctod"sv,      u"date"sv,    u"day"sv,       u"dow"sv,          u"dtoc"sv,
    u"dtor"sv,    u"dtos"sv,      u"exp"sv,     u"forceext"sv,  u"getwordcount"sv, u"getwordnum"sv,
    u"gomonth"sv, u"jd"sv,        u"justext"sv, u"justfname"sv, u"justpath"sv,     u"juststem"sv,
    u"like"sv,    u"log"sv,       u"log10"sv,   u"missing"sv,   u"month"sv,        u"of"sv,
    u"pi"sv,      u"pow"sv,       u"power"sv,   u"proper"sv,    u"ratc"sv,         u"rgb"sv,
    u"rtod"sv,    u"seconds"sv,   u"sin"sv,     u"stod"sv,      u"strextract"sv,   u"tan"sv,
    u"time"sv,    u"transform"sv, u"year"sv,
};

static_assert(std::is_sorted(kOthers.begin(), kOthers.end()));

}  // namespace

Function const* findRunTimeFunction(std::u16string_view name, bool isExact) {
    for (auto const& functions : {runTimeOperators(isExact), runTimeTextFunctions(),
                                  runTimeNumberFunctions(), runTimeValueFunctions(isExact)}) {
        if (Function const* const found = findByName(functions, name)) return found;
    }
    return nullptr;
}

bool isHarmlessRunTimeFunction(std::u16string_view name) {
    return findRunTimeFunction(name, false) != nullptr ||
           std::binary_search(kOthers.begin(), kOthers.end(), name);
}

}  // namespace kx
