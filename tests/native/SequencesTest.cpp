// Whatever is done in a host, and in whichever order: it shows nothing of what was evaluated
// without V8.
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

#include "HostPair.h"

namespace {

/// More where asked for, in a search for differences.
std::uint64_t countFromEnvironment(char const* name, std::uint64_t usual) {
    char const* const text = std::getenv(name);
    return text == nullptr ? usual : std::strtoull(text, nullptr, 10);
}

TEST(Sequences, showNoDifference) {
    std::uint64_t const first = countFromEnvironment("KXJS_FIRST_SEED", 1);
    std::uint64_t const count = countFromEnvironment("KXJS_SEQUENCES", 300);
    for (std::uint64_t seed = first; seed < first + count; ++seed) {
        std::mt19937_64 random(seed);
        HostPair hosts([&random] { return random(); });
        for (auto steps = 5 + random() % 60; steps > 0; --steps) {
            auto const difference = hosts.step();
            ASSERT_EQ(difference, u"") << "seed " << seed;
        }
        ASSERT_EQ(hosts.compareContexts(), u"") << "seed " << seed;
    }
}

}  // namespace
