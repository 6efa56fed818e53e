// kxjs-worker: started by the library, for isolated hosts.
#include <cstdio>
#include <cstring>

#include "worker/FormulaService.h"
#include "worker/Zygote.h"

int main(int count, char** arguments) {
    if (count != 2 || std::strcmp(arguments[1], "--serve") != 0) {
        std::fputs(
            "kxjs-worker: evaluates formulas for isolated hosts of the KxJsParser library, "
            "which starts it\n",
            stderr);
        return 2;
    }
    kx::FormulaService service;
    return kx::Zygote(service).run();
}
