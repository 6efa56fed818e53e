// Hosts: their life, formulas and failures.
#include "c/HostOfCall.h"

namespace kx::c {
namespace {

/// What a call reports of a run: the texts, and the status that they and the failure make.
kxjs_status report(KxJsParser const& parser, std::u16string result, std::u16string error,
                   Text* resultText, Text* errorText) {
    bool const isOk = error.empty();
    setText(resultText, std::move(result));
    setText(errorText, std::move(error));
    if (parser.lastFailure() != nullptr) return KXJS_FORMULA_FAILED;
    return isOk ? KXJS_OK : KXJS_RESULT_NAN;
}

template <class Unit>
kxjs_status parse(kxjs_host* handle, Unit const* source, std::size_t length, std::int32_t* script,
                  kxjs_text* error) {
    return guarded([&] {
        Host& host = hostOf(handle);
        std::int32_t& index = out(script);
        Text* const errorText = optional<Text>(error);
        std::u16string reason;
        index = host.parser.parse(textOf(source, length), reason);
        setText(errorText, std::move(reason));
        return index < 0 ? KXJS_FORMULA_FAILED : KXJS_OK;
    });
}

template <class Unit>
kxjs_status evaluate(kxjs_host* handle, Unit const* source, std::size_t length, kxjs_text* result,
                     kxjs_text* error) {
    return guarded([&] {
        Host& host = hostOf(handle);
        Text* const resultText = optional<Text>(result);
        Text* const errorText = optional<Text>(error);
        std::u16string reason;
        std::u16string value = host.parser.evaluate(textOf(source, length), reason);
        return report(host.parser, std::move(value), std::move(reason), resultText, errorText);
    });
}

template <class Unit>
kxjs_status extract(Unit const* source, std::size_t length, std::int64_t milliseconds,
                    kxjs_isolation const* isolation, kxjs_texts* names, kxjs_text* error) {
    return guarded([&] {
        auto& list = object<Texts>(names);
        Text* const errorText = optional<Text>(error);
        std::u16string const text = textOf(source, length);
        std::chrono::milliseconds const limit = limitOf(milliseconds);
        std::u16string reason;
        try {
            list.set(isolation == nullptr ? KxJsParser::_extractVariable(text, reason, limit)
                                          : KxJsParser::_extractVariable(text, reason, limit,
                                                                         isolationOf(isolation)));
        } catch (std::runtime_error const& failure) {
            setText(errorText, utf16FromSystem(failure.what()));
            return isolation == nullptr ? KXJS_SYSTEM_ERROR : KXJS_NO_WORKER;
        }
        bool const isOk = reason.empty();
        setText(errorText, std::move(reason));
        return isOk ? KXJS_OK : KXJS_FORMULA_FAILED;
    });
}

}  // namespace
}  // namespace kx::c

using namespace kx::c;  // NOLINT(google-build-using-namespace)

extern "C" {

kxjs_status kxjs_host_create(kxjs_host** host) {
    return guarded([&] { return create(&out(host), std::make_shared<Host>()); });
}

kxjs_status kxjs_host_free(kxjs_host* host) {
    return guarded([&] { return release<Host>(host); });
}

kxjs_status kxjs_host_initialize(kxjs_host* host) {
    return guarded([&] {
        KxJsParser& parser = hostOf(host).parser;
        parser.initialize();
        return parser.lastFailure() == nullptr ? KXJS_OK : KXJS_FORMULA_FAILED;
    });
}

kxjs_status kxjs_host_reset(kxjs_host* host) {
    return guarded([&] {
        Host& itsHost = hostOf(host);
        ++itsHost.resets;
        itsHost.parser.reset();
        return itsHost.parser.lastFailure() == nullptr ? KXJS_OK : KXJS_FORMULA_FAILED;
    });
}

kxjs_status kxjs_host_parse(kxjs_host* host, char const* source, size_t source_length,
                            int32_t* script, kxjs_text* error) {
    return parse(host, source, source_length, script, error);
}

kxjs_status kxjs_host_parse_utf16(kxjs_host* host, uint16_t const* source, size_t source_length,
                                  int32_t* script, kxjs_text* error) {
    return parse(host, source, source_length, script, error);
}

kxjs_status kxjs_host_execute(kxjs_host* host, int32_t script, kxjs_text* result,
                              kxjs_text* error) {
    return guarded([&] {
        KxJsParser& parser = hostOf(host).parser;
        Text* const resultText = optional<Text>(result);
        Text* const errorText = optional<Text>(error);
        std::u16string reason;
        std::u16string value;
        try {
            value = parser.execute(script, reason);
        } catch (std::out_of_range const&) {
            return kxjs_status{KXJS_NOT_FOUND};
        }
        return report(parser, std::move(value), std::move(reason), resultText, errorText);
    });
}

kxjs_status kxjs_host_evaluate(kxjs_host* host, char const* source, size_t source_length,
                               kxjs_text* result, kxjs_text* error) {
    return evaluate(host, source, source_length, result, error);
}

kxjs_status kxjs_host_evaluate_utf16(kxjs_host* host, uint16_t const* source, size_t source_length,
                                     kxjs_text* result, kxjs_text* error) {
    return evaluate(host, source, source_length, result, error);
}

kxjs_status kxjs_host_failure(kxjs_host* host, kxjs_failure* failure, kxjs_text* message,
                              kxjs_text* source_line) {
    return guarded([&] {
        KxJsFailure const* const last = hostOf(host).parser.lastFailure();
        std::size_t const size = sizeOfStruct(failure);
        Text* const messageText = optional<Text>(message);
        Text* const lineText = optional<Text>(source_line);
        require(last != nullptr, KXJS_NOT_FOUND);
        kxjs_failure value{};
        value.kind = static_cast<std::int32_t>(last->kind);
        value.line = last->line;
        value.column = last->column;
        value.end_column = last->endColumn;
        value.is_in_call = last->isInCall ? 1 : 0;
        value.frame_count = static_cast<std::int32_t>(last->frames.size());
        writeStruct(*failure, value, size);
        setText(messageText, last->message);
        setText(lineText, last->sourceLine);
        return KXJS_OK;
    });
}

kxjs_status kxjs_host_failure_frame(kxjs_host* host, int32_t index, kxjs_frame* frame,
                                    kxjs_text* function) {
    return guarded([&] {
        KxJsFailure const* const last = hostOf(host).parser.lastFailure();
        std::size_t const size = sizeOfStruct(frame);
        Text* const functionText = optional<Text>(function);
        bool const isThere =
            last != nullptr && index >= 0 && static_cast<std::size_t>(index) < last->frames.size();
        require(isThere, KXJS_NOT_FOUND);
        KxJsFailure::Frame const& found = last->frames[static_cast<std::size_t>(index)];
        kxjs_frame value{};
        value.line = found.line;
        value.column = found.column;
        value.is_in_source = found.isInSource ? 1 : 0;
        writeStruct(*frame, value, size);
        setText(functionText, found.function);
        return KXJS_OK;
    });
}

kxjs_status kxjs_extract(char const* source, size_t source_length, int64_t time_limit_ms,
                         kxjs_isolation const* isolation, kxjs_texts* names, kxjs_text* error) {
    return extract(source, source_length, time_limit_ms, isolation, names, error);
}

kxjs_status kxjs_extract_utf16(uint16_t const* source, size_t source_length, int64_t time_limit_ms,
                               kxjs_isolation const* isolation, kxjs_texts* names,
                               kxjs_text* error) {
    return extract(source, source_length, time_limit_ms, isolation, names, error);
}

}  // extern "C"
