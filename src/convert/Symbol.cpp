#include "convert/Symbol.h"

namespace kx {

SymbolSet whiteSpaceSet() {
    SymbolSet set;
    for (Symbol symbol = 0; symbol < 128; ++symbol) set[symbol] = isWhiteSpace(symbol);
    return set.set(kWideSpace).set(kWideLineEnd);
}

SymbolSet digitSet() {
    SymbolSet set;
    for (char digit = '0'; digit <= '9'; ++digit) set.set(static_cast<Symbol>(digit));
    return set;
}

SymbolSet anyButLineEndSet() {
    SymbolSet lineEnds;
    lineEnds.set('\n').set('\r').set(kWideLineEnd);
    return ~lineEnds;
}

SymbolSet literalSet(char16_t asciiUnit) {
    return SymbolSet{}.set(capitalOf(asciiUnit)).set(smallOf(asciiUnit));
}

}  // namespace kx
