// Variable binding: the host's map of variables, and the prologue through which scripts read them.
#include <string_view>

#include "host/BoundVariable.h"
#include "host/HostEngine.h"
#include "host/KxJsParser.h"

namespace {

// White space of the C runtime's default locale.
constexpr std::u16string_view kBlanks = u" \t\n\v\f\r";

}  // namespace

bool KxJsParser::addSetVariable(KxJsVariable const& variable) {
    _mEngine->countChange();
    // A key that is bound has been found good before.
    if (auto const bound = _mVariables.find(variable._mKey); bound != _mVariables.end()) {
        bound->second = variable;
        return true;
    }
    if (variable._mKey == _mAccessorName) return false;
    if (variable._mKey.find_first_not_of(kBlanks) == std::u16string::npos) return false;
    _mVariables.emplace(variable._mKey, variable);
    return true;
}

bool KxJsParser::variableExist(std::u16string const& key) const {
    return _mVariables.contains(key);
}

KxJsVariable::TypeOfVar KxJsParser::getVariableType(std::u16string const& key) const {
    auto const found = _mVariables.find(key);
    return found == _mVariables.end() ? KxJsVariable::TYPE_OF_VAR_UNDEFINED : found->second._mType;
}

std::u16string KxJsParser::addWrapper(std::u16string& source) {
    v8::Isolate* const isolate = _mEngine->isolate();
    v8::Local<v8::Context> const context = _mContext->get(isolate);
    // A carrier that cannot be made shows when the script runs: the prologue finds no such name.
    v8::TryCatch const ignored(isolate);
    v8::Local<v8::ObjectTemplate> const shape = _mGlobalTemplate->get(isolate);
    std::u16string wrapped;
    constexpr std::size_t kUsualPrologue = 128;
    wrapped.reserve(source.size() + kUsualPrologue);
    for (auto const& [key, variable] : _mVariables) {
        if (source.find(key) == std::u16string::npos) continue;
        v8::HandleScope const handles(isolate);
        kx::BoundVariable& bound =
            _mEngine->carriers().bound(variable, _mAccessorName, _mEngine->record().handles());
        wrapped += bound.prologueLine();
        v8::Local<v8::Object> const carrier = _mEngine->carriers().make(context, shape, bound);
        v8::Local<v8::String> const name = bound.carrierName(isolate);
        if (carrier.IsEmpty() || name.IsEmpty()) continue;
        [[maybe_unused]] auto const isDefined =
            context->Global()->CreateDataProperty(context, name, carrier);
    }
    wrapped += source;
    return wrapped;
}

void KxJsParser::clearVariables() {
    std::u16string deletions;
    for (auto const& [key, variable] : _mVariables) {
        deletions.append(u"delete ").append(key).append(u";\n");
    }
    std::u16string ignored;
    std::int32_t const index = parse(std::move(deletions), ignored);
    // Setters that scripts have left would climb where scripts must not.
    if (index != -1 && !_mEngine->isRefused()) (void)run(*_mVecOfCompiledScripts.back(), ignored);

    std::list<kx::HostRemains> remains(1);
    remains.front().variables = std::exchange(_mVariables, {});
    _mEngine->release(std::move(remains));
}
