#include "process/TestClient.h"

#include <fstream>
#include <thread>

namespace {

/// Whether the process is not there, or waits for nothing but its parent.
bool hasEnded(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string id;
    std::string name;
    std::string state;
    return !(file >> id >> name >> state) || state == "Z";
}

}  // namespace

bool endsSoon(pid_t process) {
    for (int i = 0; i < 1000; ++i) {
        if (hasEnded(process)) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}
