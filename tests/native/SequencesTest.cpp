// No sequence of calls of a host shows which formulas were evaluated without V8.
#include <gtest/gtest.h>
#include <random>

#include "HostPair.h"
#include "SearchSize.h"

namespace {

TEST(Sequences, showNoDifference) {
    std::uint64_t const first = searchSize("KXJS_FIRST_SEED", 1);
    std::uint64_t const count = searchSize("KXJS_SEQUENCES", 300);
    KxJsParser const keepsIsolate;  // which would be made anew for each sequence
    for (std::uint64_t seed = first; seed < first + count; ++seed) {
        std::mt19937_64 random(seed);
        HostPair hosts([&random] { return random(); });
        for (auto steps = 5 + random() % 40; steps > 0; --steps) {
            auto const difference = hosts.step();
            ASSERT_EQ(difference, u"") << "seed " << seed;
        }
        ASSERT_EQ(hosts.compareContexts(), u"") << "seed " << seed;
    }
}

}  // namespace
