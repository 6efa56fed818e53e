#include "columns/ColumnFormula.h"

#include <algorithm>
#include <list>
#include <utility>

#include "columns/BuiltInsCheck.h"
#include "columns/KeysCheck.h"
#include "columns/NameMeaning.h"

namespace kx {

namespace {

bool namesEvaluator(std::optional<PureExpression> const& expression) {
    return std::any_of(expression->names.begin(), expression->names.end(),
                       [](auto const& name) { return evaluatesTexts(name.text); });
}

}  // namespace

ColumnFormula::ColumnFormula(InProcessHost& host, std::u16string source,
                             std::unique_ptr<CompiledScript> script)
    : host_(host),
      source_(std::move(source)),
      script_(std::move(script)),
      generation_(host.generation()),
      expression_(pureExpression(source_)),
      mayHaveEffects_(!expression_ || namesEvaluator(expression_)) {
    for (auto const& [key, variable] : host_.variables()) {
        if (source_.find(key) != std::u16string::npos) keys_.push_back(key);
    }
}

std::optional<ColumnBindings> ColumnFormula::bindings(v8::Local<v8::Context> context,
                                                      std::vector<Column> const& columns) const {
    if (!expression_) return std::nullopt;
    // A script may have put a function in a member's place that reads a column's global.
    if (host_.hadEffects() && expression_->usesMembers) return std::nullopt;
    v8::HandleScope const handles(v8::Isolate::GetCurrent());
    if (host_.hadEffects() && !areKeysAsBound(context)) return std::nullopt;
    bool callsBuiltIns = false;
    auto const& library = host_.record()->libraryScript();
    int const libraryId =
        library == nullptr ? -1 : library->get(v8::Isolate::GetCurrent())->GetId();
    ColumnBindings bindings;
    for (auto const& [text, isCalled] : expression_->names) {
        std::u16string const name(text);
        auto const column = std::find_if(columns.begin(), columns.end(),
                                         [&](Column const& each) { return each.name == name; });
        if (column != columns.end()) {
            bindings.columns.push_back(&*column);
        } else if (std::find(keys_.begin(), keys_.end(), name) != keys_.end()) {
            bindings.constants.push_back(name);
        } else {
            auto const meaning = meaningOf(context, name, libraryId);
            if (meaning == NameMeaning::unknown) return std::nullopt;
            callsBuiltIns = callsBuiltIns || meaning != NameMeaning::constant;
            if (meaning != NameMeaning::evaluating) continue;
            // As a value, it would show that the kernel has another function in its place.
            if (!isCalled) return std::nullopt;
            bindings.evaluating.push_back(name);
        }
    }
    if (callsBuiltIns && host_.hadEffects() && !areBuiltInsAsMade(context, libraryId)) {
        return std::nullopt;
    }
    return bindings;
}

bool ColumnFormula::areKeysAsBound(v8::Local<v8::Context> context) const {
    if (areCarriersKeys(keys_)) return false;
    for (std::u16string const& key : keys_) {
        BoundVariable const& bound = host_.bound(host_.variables().at(key));
        if (!isBoundAsMade(context, key, bound, host_.accessorName())) return false;
    }
    std::uint64_t const now = host_.scriptsRun();
    if (keysCheckedAt_ == now) return true;
    if (!areCarriersUnshadowed(context, keys_)) return false;
    keysCheckedAt_ = now;
    return true;
}

bool ColumnFormula::areBuiltInsAsMade(v8::Local<v8::Context> context, int libraryId) const {
    std::uint64_t const now = host_.scriptsRun();
    if (builtInsCheckedAt_ == now) return true;
    if (!areBuiltInsUntouched(context, libraryId)) return false;
    builtInsCheckedAt_ = now;
    return true;
}

ColumnKernel const* ColumnFormula::kernelFor(ColumnBindings const& bindings,
                                             ColumnResults const& results) const {
    return kernel_ != nullptr && kernel_->fits(bindings, results) ? kernel_.get() : nullptr;
}

ColumnKernel const* ColumnFormula::makeKernel(v8::Local<v8::Context> context,
                                              ColumnBindings const& bindings,
                                              ColumnResults const& results) {
    std::list<HostResources> resources(1);
    if (kernel_ != nullptr) kernel_->release(resources.front());
    kernel_.reset();
    host_.record()->release(std::move(resources));
    kernel_ = ColumnKernel::make(host_.record()->handles(), context, expression_->text, bindings,
                                 results);
    return kernel_.get();
}

void ColumnFormula::release(HostResources& resources) noexcept {
    resources.scripts.push_back(std::move(script_));
    if (kernel_ != nullptr) kernel_->release(resources);
    kernel_.reset();
}

}  // namespace kx
