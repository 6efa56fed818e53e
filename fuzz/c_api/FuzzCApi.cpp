// Sequences of calls of the C interface, with good handles and wrong ones.
//
// The input is a list of steps, one to a line (0x1e ends a line). Machine.h says what a line holds;
// its first byte says what is done:
//
//     H  a new host                     c  another new object
//     f  free                           z  make a handle a wrong one
//     v  set a variable                 p P x e E  parse, execute, evaluate
//     i r t n m  on the host            l  read the failure
//     b o u q g  on columns             s y V T F C  on other objects
//     k D R  convert, extract, run-time part
#include <cstdint>
#include <string_view>

#include "Machine.h"
#include "support/Impossible.h"
#include "support/SaneHost.h"
#include "support/Units.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string_view const input(reinterpret_cast<char const*>(data), size);
    if (kx::fuzz::mayBeImpossible(kx::fuzz::textOf(input))) return 0;
    static kx::fuzz::SaneHost sane;
    {
        kx::fuzz::Machine machine(input);
        while (machine.runNext()) {
        }
    }
    sane.checkNow();
    return 0;
}
