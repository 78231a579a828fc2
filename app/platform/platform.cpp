#include "app/platform/platform.h"

#include "app/platform/linuxplatform.h"

namespace halvane {

namespace {

Platform*& replacement() {
    static Platform* current = nullptr;
    return current;
}

} // namespace

Platform& platform() {
    static LinuxPlatform own;
    return replacement() != nullptr ? *replacement() : own;
}

void set_platform(Platform* other) {
    replacement() = other;
}

} // namespace halvane
