#include "translate/check/CallTemplate.h"

#include <algorithm>
#include <array>
#include <utility>
#include <variant>

#include "convert/Converter.h"
#include "expression/Parser.h"
#include "translate/Functions.h"
#include "translate/Letters.h"
#include "translate/Settings.h"

namespace kx::translate {
namespace {

using Form = CallTemplate::Form;

struct InstalledForm {
    std::u16string_view function;  // of the language
    std::u16string_view callee;    // that its conversion should call
    Form form;
};

/// The functions of the language that the conversion takes to an installed one, and those of them
/// that mean something else there. Not told of: MAX, MIN and "==" compare loosely, SPACE and
/// REPLICATE round a fractional count up.
constexpr auto kInstalledForms = std::to_array<InstalledForm>({
    {u"LEN", u"LEN", Form::kept},           {u"TRIM", u"RTRIM", Form::kept},
    {u"LTRIM", u"LTRIM", Form::kept},       {u"ALLTRIM", u"ALLTRIM", Form::kept},
    {u"UPPER", u"UPPERCASE", Form::kept},   {u"LOWER", u"LOWERCASE", Form::kept},
    {u"LEFT", u"LEFT", Form::kept},         {u"RIGHT", u"RIGHT", Form::kept},
    {u"SUBSTR", u"SUBSTR", Form::differs},  {u"STUFF", u"INSERT", Form::differs},
    {u"SPACE", u"SPACE", Form::kept},       {u"REPLICATE", u"REPEAT", Form::kept},
    {u"CHR", u"CHAR", Form::kept},          {u"ASC", u"ASCII", Form::kept},
    {u"ISALPHA", u"ISALPHA", Form::kept},   {u"ISDIGIT", u"ISDIGIT", Form::kept},
    {u"AT", u"AT", Form::differs},          {u"RAT", u"RAT", Form::differs},
    {u"ATC", u"ATC", Form::differs},        {u"RATC", u"RATC", Form::differs},
    {u"OCCURS", u"OCCURS", Form::kept},     {u"CHRTRAN", u"CHRTRAN", Form::kept},
    {u"STR", u"STR", Form::differs},        {u"VAL", u"VAL", Form::differs},
    {u"INT", u"Math.floor", Form::differs}, {u"ROUND", u"ROUND", Form::differs},
    {u"ABS", u"Math.abs", Form::kept},      {u"MAX", u"MAX", Form::kept},
    {u"MIN", u"MIN", Form::kept},           {u"LOG", u"LOG", Form::kept},
    {u"LOG10", u"LOG", Form::kept},         {u"SIN", u"Math.sin", Form::kept},
    {u"COS", u"Math.cos", Form::kept},      {u"TAN", u"Math.tan", Form::kept},
    {u"ASIN", u"Math.asin", Form::kept},    {u"ACOS", u"Math.acos", Form::kept},
    {u"ATAN", u"Math.atan", Form::kept},    {u"ATAN2", u"Math.atan2", Form::kept},
    {u"CEILING", u"Math.ceil", Form::kept}, {u"FLOOR", u"Math.floor", Form::kept},
    {u"RTOD", u"DEGREES", Form::kept},      {u"DTOR", u"RADIANS", Form::kept},
    {u"RAND", u"Math.random", Form::kept},  {u"BETWEEN", u"BETWEEN", Form::differs},
    {u"INLIST", u"INLIST", Form::differs},
});

constexpr std::u16string_view kPlaceholder = u"qq";

std::u16string placeholder(std::size_t which) {
    std::u16string name(kPlaceholder);
    do {
        name += static_cast<char16_t>(u'b' + which % 8);
        which /= 8;
    } while (which > 0);
    return name;
}

std::u16string calleeOf(Expression const& expression) {
    auto const& root = expression.root();
    if (root.kind != kx::NodeKind::call) return {};
    auto const& callee = expression.child(root, 0);
    if (callee.kind == kx::NodeKind::name) return std::u16string(expression.text(callee));
    if (callee.kind != kx::NodeKind::member) return {};
    auto const& object = expression.child(callee, 0);
    if (object.kind != kx::NodeKind::name) return {};
    return std::u16string(expression.text(object)) + u"." + std::u16string(expression.text(callee));
}

/// Whether the arguments of a call are the placeholders, perhaps with a literal behind them.
bool hasPlaceholders(Expression const& expression, std::size_t count) {
    auto const& root = expression.root();
    if (root.childCount < count + 1) return false;
    for (std::size_t i = 0; i < count; ++i) {
        auto const& argument = expression.child(root, i + 1);
        bool const isIt = argument.kind == kx::NodeKind::name &&
                          placeholderOf(expression.text(argument)) == static_cast<int>(i);
        if (!isIt) return false;
    }
    for (std::size_t i = count + 1; i < root.childCount; ++i) {
        if (expression.child(root, i).kind != kx::NodeKind::number) return false;
    }
    return true;
}

Form formOf(Expression const& expression, std::u16string_view name, Node const& call) {
    if (call.callee == Callee::language) {
        std::u16string_view const function = call.function->row.name;
        using Kind = kx::NodeKind;
        if (function == u"MOD" && expression.root().kind == Kind::binary) return Form::differs;
        if (function == u"COT" && expression.root().kind == Kind::binary) return Form::kept;
    }
    std::u16string const callee = calleeOf(expression);
    if (!hasPlaceholders(expression, call.childCount)) return Form::broken;
    if (call.callee == Callee::language) {
        std::u16string_view const function = call.function->row.name;
        auto const installed =
            std::find_if(kInstalledForms.begin(), kInstalledForms.end(),
                         [&](InstalledForm const& form) { return form.function == function; });
        if (installed != kInstalledForms.end() && installed->callee == callee) {
            return installed->form;
        }
    }
    bool const isItself =
        std::equal(callee.begin(), callee.end(), name.begin(), name.end(),
                   [](char16_t a, char16_t b) { return upperCase(a) == upperCase(b); });
    if (!isItself) return Form::broken;
    bool const isKnown = call.callee == Callee::host || call.callee == Callee::installed;
    return isKnown ? Form::kept : Form::unknown;
}

CallTemplate makeTemplate(std::u16string_view name, Node const& call) {
    std::u16string source(name);
    source += u'(';
    for (std::size_t i = 0; i < call.childCount; ++i) {
        if (i > 0) source += u',';
        source += placeholder(i);
    }
    source += u')';
    CallTemplate made;
    auto parsed = parseExpression(Converter::_convert(source.c_str()));
    if (auto* const expression = std::get_if<Expression>(&parsed)) {
        made.form = formOf(*expression, name, call);
        made.expression = std::move(*expression);
    }
    return made;
}

NameMap<CallTemplate>& keptTemplates() {
    thread_local NameMap<CallTemplate> kept;
    return kept;
}

}  // namespace

int placeholderOf(std::u16string_view name) {
    if (!name.starts_with(kPlaceholder) || name.size() == kPlaceholder.size()) return -1;
    int which = 0;
    for (std::size_t i = name.size(); i-- > kPlaceholder.size();) {
        if (name[i] < u'b' || name[i] > u'i') return -1;
        which = which * 8 + (name[i] - u'b');
    }
    return which;
}

CallTemplate const& callTemplate(std::u16string_view name, Node const& call) {
    NameMap<CallTemplate>& kept = keptTemplates();
    std::u16string key(name);
    key += u'(';
    key += static_cast<char16_t>(call.childCount);
    key += static_cast<char16_t>(call.callee);
    if (auto const found = kept.find(key); found != kept.end()) return found->second;
    return kept.emplace(std::move(key), makeTemplate(name, call)).first->second;
}

void limitCallTemplates() {
    // Formulas use few functions, but a long list of formulas may misuse many names.
    constexpr std::size_t kMostKept = 4096;
    if (keptTemplates().size() > kMostKept) keptTemplates().clear();
}

}  // namespace kx::translate
