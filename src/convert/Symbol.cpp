#include "convert/Symbol.h"

namespace kx {

SymbolSet whiteSpaceSet() {
    SymbolSet set;
    for (std::size_t symbol = 0; symbol < symbolCount; ++symbol)
        set[symbol] = isSpaceSymbol(static_cast<Symbol>(symbol));
    return set;
}

SymbolSet digitSet() {
    SymbolSet set;
    for (char digit = '0'; digit <= '9'; ++digit) set.set(static_cast<Symbol>(digit));
    return set;
}

SymbolSet anyButLineEndSet() {
    SymbolSet lineEnds;
    lineEnds.set('\n').set('\r').set(wideLineEnd);
    return ~lineEnds;
}

SymbolSet singleSet(Symbol symbol) { return SymbolSet{}.set(symbol); }

}  // namespace kx
