#include "columns/KxJsColumns.h"

#include <algorithm>
#include <utility>

#include "columns/InProcessColumns.h"
#include "columns/IsolatedColumns.h"
#include "columns/TextResults.h"
#include "host/KxJsParser.h"
#include "isolated/IsolatedHost.h"

KxJsColumns::SharedText::SharedText(std::u16string text) {
    text.shrink_to_fit();  // there may be millions
    _mText = std::make_shared<std::u16string const>(std::move(text));
}

std::u16string const& KxJsColumns::SharedText::str() const {
    static auto const& kEmpty = *new std::u16string;
    return _mText == nullptr ? kEmpty : *_mText;
}

KxJsColumns::KxJsColumns(KxJsParser& host) {
    if (auto* const isolated = dynamic_cast<kx::IsolatedHost*>(&host._backend())) {
        _mColumns = std::make_unique<kx::IsolatedColumns>(host, *isolated);
    } else {
        _mColumns = std::make_unique<kx::InProcessColumns>(host);
    }
}
KxJsColumns::~KxJsColumns() = default;

void KxJsColumns::bind(std::u16string const& name, double const* values) {
    _mColumns->bind(name, values);
}
void KxJsColumns::bind(std::u16string const& name, std::int32_t const* values) {
    _mColumns->bind(name, values);
}
void KxJsColumns::bind(std::u16string const& name, bool const* values) {
    _mColumns->bind(name, values);
}
void KxJsColumns::bind(std::u16string const& name, std::u16string const* values) {
    _mColumns->bind(name, values);
}
void KxJsColumns::bind(std::u16string const& name, std::u16string_view const* values) {
    _mColumns->bind(name, values);
}

bool KxJsColumns::compile(std::u16string const& source, std::u16string& error) {
    return _mColumns->compile(source, error);
}

KxJsColumns::Outcome KxJsColumns::evaluate(std::size_t count, std::u16string* results) {
    return _mColumns->evaluate(count, kx::TextResults(results));
}
KxJsColumns::Outcome KxJsColumns::evaluate(std::size_t count, JoinedTexts& results) {
    results.truncate(0);
    results.offsets.reserve(std::max(count, count + 1));  // the largest number is refused too
    Outcome outcome = _mColumns->evaluate(count, kx::TextResults(results));
    results.truncate(outcome.records);
    return outcome;
}
KxJsColumns::Outcome KxJsColumns::evaluate(std::size_t count, double* results) {
    return _mColumns->evaluate(count, results);
}
KxJsColumns::Outcome KxJsColumns::evaluate(std::size_t count, bool* results) {
    return _mColumns->evaluate(count, results);
}

void KxJsColumns::setProgress(Progress progress) { _mColumns->setProgress(std::move(progress)); }
