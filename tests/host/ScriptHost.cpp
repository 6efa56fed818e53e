#include "ScriptHost.h"

#include <string>
#include <string_view>

namespace {

std::string printable(std::u16string const& text) {
    std::string result;
    for (char16_t const unit : text) {
        if (unit >= 0x20 && unit < 0x7F) {
            result += static_cast<char>(unit);
        } else {
            static constexpr std::string_view kDigits = "0123456789abcdef";
            result += "\\u";
            for (int shift = 12; shift >= 0; shift -= 4) result += kDigits[(unit >> shift) & 15];
        }
    }
    return result;
}

}  // namespace

void PrintTo(ScriptHost::Run const& run, std::ostream* stream) {
    *stream << '"' << printable(run.result) << "\" with error \"" << printable(run.error) << '"';
}
