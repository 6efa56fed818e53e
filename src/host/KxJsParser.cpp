#include "host/KxJsParser.h"

#include <stdexcept>
#include <utility>

#include "engine/Text.h"
#include "host/InProcessHost.h"

namespace {

constexpr std::int32_t kNotParsed = -1;

// White space of the C runtime's default locale.
constexpr std::u16string_view kBlanks = u" \t\n\v\f\r";

}  // namespace

KxJsParser::KxJsParser()
    : _mBackend(std::make_unique<kx::InProcessHost>(_mVariables, _mAccessorName)) {}

// The variables' globals go with the context. Deleting them would run setters that a script has put
// in their places.
KxJsParser::~KxJsParser() {
    _mBackend->releaseAll(std::move(_mVariables), std::move(_mVecOfCompiledScripts));
}

void KxJsParser::initialize() {
    if (_mBackend->isUsable()) _mBackend->installLibrary();
}

void KxJsParser::reset() { _mBackend->reset(_mVariables, _mVecOfCompiledScripts); }

bool KxJsParser::addSetVariable(KxJsVariable const& variable) {
    // A key that is bound was checked when it was bound first.
    if (auto const bound = _mVariables.find(variable._mKey); bound != _mVariables.end()) {
        bound->second = variable;
        _mBackend->variableWasSet(bound->second);
        return true;
    }
    if (variable._mKey == _mAccessorName) return false;
    if (variable._mKey.find_first_not_of(kBlanks) == std::u16string::npos) return false;
    _mBackend->variableWasSet(_mVariables.emplace(variable._mKey, variable).first->second);
    return true;
}

bool KxJsParser::variableExist(std::u16string const& key) const {
    return _mVariables.contains(key);
}

KxJsVariable::TypeOfVar KxJsParser::getVariableType(std::u16string const& key) const {
    auto const found = _mVariables.find(key);
    return found == _mVariables.end() ? KxJsVariable::TYPE_OF_VAR_UNDEFINED : found->second._mType;
}

// By value, as callers were compiled against it.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
std::int32_t KxJsParser::parse(std::u16string source, std::u16string& error) {
    if (!_mBackend->isUsable()) return kNotParsed;
    std::unique_ptr<kx::CompiledScript> script = _mBackend->compile(source, error);
    if (script == nullptr) return kNotParsed;
    _mVecOfCompiledScripts.push_back(std::move(script));
    return static_cast<std::int32_t>(_mVecOfCompiledScripts.size() - 1);
}

std::u16string KxJsParser::execute(std::int32_t index, std::u16string& error) {
    if (!_mBackend->isUsable()) {
        error = kx::kWrongThread;
        return {};
    }
    auto const position = static_cast<std::size_t>(index);  // a negative one becomes huge
    if (position >= _mVecOfCompiledScripts.size()) {
        _mBackend->forgetFailure();
        throw std::out_of_range("invalid vector<T> subscript");
    }
    return _mBackend->run(*_mVecOfCompiledScripts[position], error);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param)
std::u16string KxJsParser::evaluate(std::u16string source, std::u16string& error) {
    if (!_mBackend->isUsable()) {
        error = kx::kWrongThread;
        return {};
    }
    std::unique_ptr<kx::CompiledScript> const script = _mBackend->compile(source, error);
    return script == nullptr ? std::u16string() : _mBackend->run(*script, error);
}

KxJsFailure const* KxJsParser::lastFailure() const { return _mBackend->lastFailure(); }

void KxJsParser::setTimeLimit(std::chrono::milliseconds limit) { _mBackend->setTimeLimit(limit); }

void KxJsParser::setMemoryLimit(std::size_t bytes) { _mBackend->setMemoryLimit(bytes); }

void KxJsParser::setNativeEvaluation(bool isOn) { _mBackend->setNativeEvaluation(isOn); }

void KxJsParser::terminate() { _mBackend->terminate(); }

KxJsSandbox const* KxJsParser::sandbox() const { return _mBackend->sandbox(); }

std::span<std::byte> KxJsParser::sharedMemory() const { return _mBackend->sharedMemory(); }

kx::HostBackend& KxJsParser::_backend() const { return *_mBackend; }

// NOLINTNEXTLINE(performance-unnecessary-value-param)
v8::Local<v8::String> KxJsParser::_convertStdStringToV8String(std::u16string text) {
    return kx::toV8String(v8::Isolate::GetCurrent(), text);
}

std::u16string KxJsParser::_convertV8StringToStdString(v8::Local<v8::String> text) {
    return kx::fromV8String(v8::Isolate::GetCurrent(), text);
}

std::u16string KxJsParser::_convertV8StringToStdString(v8::Local<v8::Value> value) {
    v8::Isolate* const isolate = v8::Isolate::GetCurrent();
    return kx::textOfValue(isolate, isolate->GetCurrentContext(), value);
}
