#include "RealFormulas.h"

#include <fstream>
#include <stdexcept>

namespace {

/// The file holds no character that takes more than three bytes.
std::u16string fromUtf8(std::string const& bytes) {
    std::u16string text;
    for (std::size_t i = 0; i < bytes.size();) {
        auto const lead = static_cast<unsigned char>(bytes[i++]);
        unsigned int code = lead < 0x80 ? lead : lead < 0xe0 ? lead & 0x1fU : lead & 0x0fU;
        for (int rest = lead < 0x80 ? 0 : lead < 0xe0 ? 1 : 2; rest > 0; --rest) {
            code = code << 6 | (static_cast<unsigned char>(bytes.at(i++)) & 0x3fU);
        }
        text += static_cast<char16_t>(code);
    }
    return text;
}

}  // namespace

std::vector<std::u16string> readRealFormulas() {
    std::ifstream file(KXJS_REAL_FORMULAS);
    std::vector<std::u16string> formulas;
    for (std::string line; std::getline(file, line);) {
        formulas.push_back(fromUtf8(line.substr(line.find('\t') + 1)));
    }
    if (formulas.empty()) throw std::runtime_error("no real formulas");
    return formulas;
}
