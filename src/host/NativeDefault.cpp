#include "host/NativeDefault.h"

#include <cstdlib>
#include <string_view>

namespace kx {

bool isNativeByDefault() {
    static bool const isOn = [] {
        char const* const value = std::getenv("KXJS_NATIVE_EVALUATION");
        return value == nullptr || std::string_view(value) != "off";
    }();
    return isOn;
}

}  // namespace kx
