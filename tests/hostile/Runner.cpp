// Runs one hostile script in this process, which must live: the answer must be a text, and the
// expected one where the file says so, and ordinary formulas must work afterwards.
//
//     hostile FILE
//
// Exit status: 0, 1 where something was not as expected, 2 for a file that cannot be understood. A
// script that is known to end the process, or never to end, must do so as it is known to; where it
// does not any more, which is good news, the status is 77.
#include <exception>
#include <iostream>

#include "HostileScript.h"
#include "Trial.h"

namespace {

constexpr int kSurvivedUnexpectedly = 77;

int test(HostileScript const& script) {
    if (!script.isHopeless()) return survives(script) ? 0 : 1;
    switch (endOf(script)) {
        case End::asExpected:
            return 0;
        case End::survived:
            std::cout << "The engine survives this script now: it belongs to the others, and the "
                         "list of what the engine makes impossible is one shorter.\n";
            return kSurvivedUnexpectedly;
        default:
            std::cout << "The process ended in another way than it is known to.\n";
            return 1;
    }
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) {
        std::cerr << "usage: hostile FILE\n";
        return 2;
    }
    try {
        return test(readHostileScript(arguments[1]));
    } catch (std::exception const& error) {
        std::cerr << arguments[1] << ": " << error.what() << '\n';
        return 2;
    }
}
