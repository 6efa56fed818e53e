#include "isolated/TestClient.h"

#include <csignal>
#include <thread>

bool endsSoon(pid_t process) {
    for (int i = 0; i < 1000; ++i) {
        if (kill(process, 0) != 0) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}
