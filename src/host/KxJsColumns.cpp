#include "host/KxJsColumns.h"

#include <utility>

#include "host/ColumnEvaluation.h"

KxJsColumns::KxJsColumns(KxJsParser& host)
    : _mEvaluation(std::make_unique<kx::ColumnEvaluation>(host)) {}
KxJsColumns::~KxJsColumns() = default;

void KxJsColumns::bind(std::u16string const& name, double const* values) {
    _mEvaluation->bind(name, values);
}
void KxJsColumns::bind(std::u16string const& name, std::int32_t const* values) {
    _mEvaluation->bind(name, values);
}
void KxJsColumns::bind(std::u16string const& name, bool const* values) {
    _mEvaluation->bind(name, values);
}
void KxJsColumns::bind(std::u16string const& name, std::u16string const* values) {
    _mEvaluation->bind(name, values);
}
void KxJsColumns::bind(std::u16string const& name, std::u16string_view const* values) {
    _mEvaluation->bind(name, values);
}

bool KxJsColumns::compile(std::u16string const& source, std::u16string& error) {
    return _mEvaluation->compile(source, error);
}

KxJsColumns::Outcome KxJsColumns::evaluate(std::size_t count, std::u16string* results) {
    return _mEvaluation->evaluate(count, results);
}
KxJsColumns::Outcome KxJsColumns::evaluate(std::size_t count, double* results) {
    return _mEvaluation->evaluate(count, results);
}
KxJsColumns::Outcome KxJsColumns::evaluate(std::size_t count, bool* results) {
    return _mEvaluation->evaluate(count, results);
}

void KxJsColumns::setProgress(Progress progress) { _mEvaluation->setProgress(std::move(progress)); }
