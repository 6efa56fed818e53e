#include "cases/Cases.h"

namespace bench {

std::vector<Case> allCases() {
    std::vector<Case> all;
    for (auto const& group :
         {hostReadyCases(), parseCases(), executeCases(), oneShotCases(), convertCases()}) {
        all.insert(all.end(), group.begin(), group.end());
    }
    return all;
}

}  // namespace bench
