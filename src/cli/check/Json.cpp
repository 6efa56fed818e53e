#include "cli/check/Json.h"

#include "cli/check/Summary.h"
#include "text/Surrogates.h"
#include "text/Utf8.h"

namespace kx {
namespace {

void appendEscape(std::string& json, char16_t unit) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    json += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4) json += kDigits[(unit >> shift) & 0xF];
}

void appendMember(std::string& json, std::string_view name, std::u16string_view text) {
    json.append(",\"").append(name).append("\":");
    appendJson(json, text);
}

void appendMember(std::string& json, std::string_view name, std::size_t number) {
    json.append(",\"").append(name).append("\":").append(std::to_string(number));
}

}  // namespace

void appendJson(std::string& json, std::u16string_view text) {
    json += '"';
    for (std::size_t i = 0; i < text.size(); ++i) {
        char16_t const unit = text[i];
        bool const isPair =
            isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1]);
        bool const isHalf = !isPair && (isHighSurrogate(unit) || isLowSurrogate(unit));
        if (unit == u'"' || unit == u'\\') {
            json += '\\';
            json += static_cast<char>(unit);
        } else if (unit < u' ' || unit == u'<' || unit == u'\u2028' || unit == u'\u2029' ||
                   isHalf) {
            appendEscape(json, unit);
        } else if (unit < 0x80) {
            json += static_cast<char>(unit);
        } else {
            json += utf8FromUtf16(text.substr(i, isPair ? 2 : 1));
            if (isPair) ++i;
        }
    }
    json += '"';
}

std::string jsonOf(std::u16string const& formula, std::size_t line,
                   KxJsTranslator::Check const& check) {
    std::string json = R"({"line":)" + std::to_string(line);
    appendMember(json, "formula", formula);
    json.append(R"(,"verdict":")").append(verdictName(check.verdict)).append("\"");
    appendMember(json, "javaScript", check.javaScript);
    appendMember(json, "rewrite", check.rewrite);
    json += R"(,"findings":[)";
    bool isFirst = true;
    for (KxJsTranslator::Damage const& damage : check.damages) {
        if (!isFirst) json += ',';
        isFirst = false;
        json += R"({"code":)";
        appendJson(json, damage.code);
        appendMember(json, "position", damage.position);
        appendMember(json, "length", damage.length);
        appendMember(json, "text", damage.text);
        appendMember(json, "javaScript", damage.javaScript);
        appendMember(json, "rewrite", damage.rewrite);
        appendMember(json, "rewritePosition", damage.rewritePosition);
        appendMember(json, "rewriteLength", damage.rewriteLength);
        json += '}';
    }
    return json + "]}";
}

}  // namespace kx
