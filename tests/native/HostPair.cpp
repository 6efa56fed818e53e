#include "HostPair.h"

#include <array>
#include <chrono>
#include <string_view>
#include <utility>

#include "text/NumberText.h"

namespace {

using namespace std::string_view_literals;

constexpr std::array kKeys = {
    u"A"sv,
    u"B"sv,
    u"C"sv,
    u"S"sv,
    u"T"sv,
    u"U"sv,
    u"AB"sv,
    u"\u00e9t\u00e9"sv,
    // Names that mean something else to scripts, or that are no names of variables.
    u"LEN"sv,
    u"kx"sv,
    u"A___A"sv,
    u"my var"sv,
    u"toString"sv,
    u"if"sv,
    u"Math"sv,
    u"eval"sv,
    u"undefined"sv,
};
constexpr std::size_t kPlainKeys = 8;

/// Scripts with effects, scripts that show the effects of others, and broken ones.
constexpr std::array kScripts = {
    u"A=5"sv,
    u"A>=B"sv,
    u"A=>B"sv,
    u"A+"sv,
    u"A B"sv,
    u"var Q=A;Q"sv,
    u"typeof Q"sv,
    u"delete A"sv,
    u"delete this.A"sv,
    u"let A=1;A"sv,
    u"this.B=function(){return 7};B+''"sv,
    u"LEFT=1"sv,
    u"eval=3"sv,
    u"Math.floor=function(x){return A}"sv,
    u"String.prototype.left=function(){return 'l'}"sv,
    u"String.prototype.charAt=function(){return 'c'}"sv,
    u"Object.defineProperty(this,'A',{get:function(){return 7},set:function(){},configurable:true})"sv,
    u"Object.freeze(this)"sv,
    u"RegExp.lastMatch+'|'+RegExp.leftContext+'|'+RegExp.$_"sv,
    u"/b+/.test('abba')"sv,
    u"IIF('A=9',1,2)"sv,
    u"IIF(S,1,2)"sv,
    u"COND(T,A,true,B)"sv,
    u"LISTFUNCT().length"sv,
    u"LISTFUNCT"sv,
    u"''+eval"sv,
    u"Object.keys(this).join()"sv,
    u"A___A.ouraccessor"sv,
    u"var keep=A___A;keep.ouraccessor"sv,
    u"typeof keep=='object'?keep.ouraccessor:'none'"sv,
    u"throw A"sv,
    u"LEFT(5,2)"sv,
    u"UNBOUND+1"sv,
    u"A.b.c"sv,
    u"Math.sin(A)+Math.pow(2,B)"sv,
    u"LOG(Math.abs(A)+1,10)"sv,
    u"(function(){A=1;return B})()"sv,
    u"Promise.resolve(1).then(function(){A=77});A"sv,
    u"A+B+C+S+T+U"sv,
    u"'A'+'B'+AB"sv,
    u"A.toString()"sv,
    u"S.concat(T)"sv,
    u"[A,B]"sv,
    u"`${A}`"sv,
    u""sv,
    u";"sv,
    u"A;"sv,
    u"A\nB"sv,
    u"A//B"sv,
    u"SPACE(300000).length"sv,
    u"ALLTRIM(S)"sv,
    u"VAL(S)+VAL(T)"sv,
    u"ISALPHA(S)"sv,
    u"kx"sv,
    u"kx=5"sv,
    u"kx.add"sv,
    u"typeof kx"sv,
    u"delete kx"sv,
    u"kx.type(()=>A)"sv,
    u"kx.unknown(A)"sv,
    u"kx.of(true,'YYYY',B).eq(S,T)"sv,
    u"Object.defineProperty(this,'kx',{value:{add:function(){return 7}}})"sv,
    u"String.prototype.slice=function(){return 's'}"sv,
};

constexpr std::u16string_view kGlobals =
    u"(function(all){var r='';for(var k in all){var v=all[k];r+=k+'='+(typeof v=='function'?'f'"
    u":typeof v=='object'&&v?'{'+v.ouraccessor+'}':String(v))+';'}return r})(this)";
constexpr std::u16string_view kMatch =
    u"[RegExp.lastMatch,RegExp.leftContext,RegExp.rightContext,RegExp.$_].join('|')";

/// Some formulas never end.
constexpr std::chrono::milliseconds kTimeLimit{100};
constexpr std::size_t kMemoryLimit = std::size_t{64} << 20;
constexpr std::u16string_view kLimited = u"The script was ";

}  // namespace

HostPair::HostPair(Choices const& choices)
    : choices_(choices), generator_(choices), translated_(choices) {
    engine_.setNativeEvaluation(false);
    for (KxJsParser* const host : {&native_, &engine_}) {
        host->setTimeLimit(kTimeLimit);
        host->setMemoryLimit(kMemoryLimit);
    }
    if (choices_() % 8 == 0) return;
    native_.initialize();
    engine_.initialize();
    noteLimits();
    if (choices_() % 2 == 0) evaluate(KxJsTranslator::runTimePart());
}

std::u16string HostPair::failureOf(KxJsParser const& host) {
    KxJsFailure const* const failure = host.lastFailure();
    if (failure == nullptr) return u"none";
    return failure->message + u" at " + kx::decimalText(failure->line) + u":" +
           kx::decimalText(failure->column) + u"-" + kx::decimalText(failure->endColumn) +
           u" of kind " + kx::decimalText(static_cast<int>(failure->kind));
}

std::u16string HostPair::compare(std::u16string const& what, Outcome const& native,
                                 Outcome const& engine) {
    // Where a limit ends a script varies from run to run, and so does what the script leaves.
    bool const isLimited = native.error.starts_with(kLimited) || engine.error.starts_with(kLimited);
    if (isLimited) isOver_ = true;
    if (native == engine || isLimited) return {};
    auto const text = [](Outcome const& outcome) {
        return u"\n  result " + outcome.result + u"\n  error " + outcome.error + u"\n  failure " +
               outcome.failure;
    };
    return done_ + what + text(native) + u"\ninstead of" + text(engine);
}

template <class Call>
std::u16string HostPair::compareCalls(std::u16string const& what, Call call) {
    auto const outcomeOf = [&call](KxJsParser& host) {
        Outcome outcome;
        outcome.result = call(host, outcome.error);
        outcome.failure = failureOf(host);
        return outcome;
    };
    Outcome const native = outcomeOf(native_);
    std::u16string difference = compare(what, native, outcomeOf(engine_));
    if (difference.empty()) done_ += what;
    return difference;
}

void HostPair::noteLimits() {
    for (KxJsParser const* const host : {&native_, &engine_}) {
        KxJsFailure const* const failure = host->lastFailure();
        if (failure != nullptr && failure->kind == KxJsFailure::Kind::LIMIT) isOver_ = true;
    }
}

std::u16string HostPair::source() {
    std::uint64_t const choice = choices_() % 12;
    if (choice < 3) return std::u16string(kScripts[choices_() % kScripts.size()]);
    if (choice < 6) return translated_.translation();
    if (choice == 6 && choices_() % 16 == 0) return KxJsTranslator::runTimePart();
    return generator_.formula();
}

std::u16string HostPair::bind() {
    bool const isPlain = choices_() % 16 != 0;
    auto const key = kKeys[choices_() % (isPlain ? kPlainKeys : kKeys.size())];
    KxJsVariable const variable = generator_.value(std::u16string(key));
    done_ += variable.getKey() + u" := " + variable.valueToString() + u"\n";
    native_.addSetVariable(variable);
    engine_.addSetVariable(variable);
    return {};
}

std::u16string HostPair::parse() {
    std::u16string const text = source();
    std::int32_t index = -1;
    auto const call = [&](KxJsParser& host, std::u16string& error) {
        index = host.parse(text, error);
        return kx::decimalText(index);
    };
    std::u16string difference = compareCalls(u"parse " + text + u"\n", call);
    if (difference.empty() && index != -1) parsed_.push_back(text);
    return difference;
}

std::u16string HostPair::execute() {
    if (parsed_.empty()) return parse();
    std::size_t const which = choices_() % parsed_.size();
    auto const call = [index = static_cast<std::int32_t>(which)](KxJsParser& host,
                                                                 std::u16string& error) {
        return host.execute(index, error);
    };
    return compareCalls(u"execute " + parsed_[which] + u"\n", call);
}

std::u16string HostPair::evaluate(std::u16string const& source) {
    auto const call = [&source](KxJsParser& host, std::u16string& error) {
        return host.evaluate(source, error);
    };
    return compareCalls(u"evaluate " + source + u"\n", call);
}

std::u16string HostPair::step() {
    // Taken in any case: callers step until there are no choices left.
    std::uint64_t const choice = choices_() % 100;
    if (isOver_) return {};
    if (choice < 35) return bind();
    if (choice < 55) return parse();
    if (choice < 88) return execute();
    if (choice < 95) return evaluate(source());
    if (choice < 97) {
        done_ += u"reset\n";
        native_.reset();
        engine_.reset();
        noteLimits();
        parsed_.clear();
    } else if (choice < 98) {
        done_ += u"initialize\n";
        native_.initialize();
        engine_.initialize();
        noteLimits();
    } else {
        return evaluate(std::u16string(choice < 99 ? kMatch : kGlobals));
    }
    return {};
}

std::u16string HostPair::compareContexts() {
    if (isOver_) return {};
    std::u16string difference = evaluate(std::u16string(kMatch));
    if (difference.empty()) difference = evaluate(std::u16string(kGlobals));
    return difference;
}
