#include "host/DeferredEffects.h"

#include "engine/Text.h"
#include "host/Carriers.h"

namespace kx {

namespace {

/// The expressions with which the catalogues' functions search, and whether they go through all
/// matches.
std::u16string_view expressionOf(Match::Pattern pattern) {
    switch (pattern) {
        case Match::Pattern::leadingBlanks:
            return u"^\\s+";
        case Match::Pattern::trailingBlanks:
            return u"\\s+$";
        case Match::Pattern::blanksAround:
            return u"^\\s+|\\s+$";
        case Match::Pattern::unit:
            return u"[^]";
        default:
            return u"-?\\d+\\.?\\d*";
    }
}

bool goesThroughAll(Match::Pattern pattern) {
    return pattern == Match::Pattern::leadingBlanks || pattern == Match::Pattern::trailingBlanks ||
           pattern == Match::Pattern::blanksAround;
}

}  // namespace

void DeferredEffects::noteCarrier(BoundVariable& variable) {
    if (variable.globals().hasCarrier || variable.globals().isCarrierPending) return;
    pending_.push_back({Effect::carrier, &variable});
    variable.globals().isCarrierPending = true;
}

void DeferredEffects::noteRun(std::span<BoundVariable* const> variables,
                              std::span<Value const> values) {
    for (std::size_t i = 0; i < variables.size(); ++i) {
        BoundVariable* const variable = variables[i];
        variable->keepValue(values[i]);
        if (variable->globals().isAssignmentPending) continue;
        pending_.push_back({Effect::assignment, variable});
        variable->globals().isAssignmentPending = true;
    }
}

void DeferredEffects::noteMatch(Match const& match) {
    if (match.pattern == Match::Pattern::none) return;
    pattern_ = match.pattern;
    subject_ = match.subject;
}

void DeferredEffects::apply(v8::Local<v8::Context> context, v8::Local<v8::ObjectTemplate> shape,
                            Carriers& carriers) {
    v8::Isolate* const isolate = v8::Isolate::GetCurrent();
    v8::HandleScope const handles(isolate);
    v8::TryCatch const ignored(isolate);
    for (auto const& [effect, variable] : pending_) {
        v8::HandleScope const own(isolate);
        if (effect == Effect::carrier) {
            variable->globals().isCarrierPending = false;
            carriers.define(context, shape, *variable);
            continue;
        }
        variable->globals().isAssignmentPending = false;
        v8::Local<v8::String> const name = toV8Name(isolate, variable->key());
        if (name.IsEmpty()) continue;
        [[maybe_unused]] auto const isSet =
            context->Global()->Set(context, name, variable->keptValue(isolate));
    }
    pending_.clear();
    if (pattern_ != Match::Pattern::none) applyMatch(context);
}

void DeferredEffects::applyMatch(v8::Local<v8::Context> context) {
    v8::Isolate* const isolate = v8::Isolate::GetCurrent();
    bool const all = goesThroughAll(pattern_);
    v8::Local<v8::String> const text = toV8String(isolate, expressionOf(pattern_));
    v8::Local<v8::String> const subject = toV8String(isolate, subject_);
    pattern_ = Match::Pattern::none;
    v8::Local<v8::RegExp> expression;
    if (!v8::RegExp::New(context, text, all ? v8::RegExp::kGlobal : v8::RegExp::kNone)
             .ToLocal(&expression)) {
        return;
    }
    v8::Local<v8::Object> match;
    while (expression->Exec(context, subject).ToLocal(&match) && all && !match->IsNull()) {
    }
}

}  // namespace kx
