// Extraction of a source's free variables, by running it until nothing is missing.
#include <optional>
#include <string_view>

#include "host/KxJsParser.h"

namespace {

constexpr std::u16string_view kMissing = u" is not defined";

/// The name that `message` says is missing; nothing where it says something else.
std::optional<std::u16string> missingName(std::u16string const& message) {
    auto const blank = message.find(u' ');
    if (blank == std::u16string::npos || message.substr(blank) != kMissing) return std::nullopt;
    return message.substr(0, blank);
}

}  // namespace

std::vector<std::u16string> KxJsParser::_extractVariable(std::u16string const& source,
                                                         std::u16string& error) {
    std::vector<std::u16string> names;
    // The catch clause turns the engine's message about a missing name into the script's result.
    std::u16string const wrapped = u"try{" + source + u";}catch(e){e.message;};";
    KxJsParser host;
    host.initialize();
    for (std::int32_t index = host.parse(wrapped, error); index != -1;
         index = host.parse(wrapped, error)) {
        std::u16string runError;
        std::u16string const result = host.execute(index, runError);
        if (!runError.empty()) break;
        std::optional<std::u16string> const name = missingName(result);
        if (!name) break;
        names.push_back(*name);
        host.addSetVariable(KxJsVariable(*name, u" "));
    }
    return names;
}
