// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <ctime>
#include <string>

namespace halvane {

/// The time zone of the machine is another one while it lives.
class MachineZone {
public:
    /// In     zone  as POSIX writes it in TZ
    explicit MachineZone(const char* zone) {
        if (const char* before = std::getenv("TZ")) {
            was_set_ = true;
            before_ = before;
        }
        set(zone);
    }
    MachineZone(const MachineZone&) = delete;
    MachineZone& operator=(const MachineZone&) = delete;
    ~MachineZone() {
        if (was_set_)
            set(before_.c_str());
        else
            ::unsetenv("TZ");
        ::tzset();
    }

private:
    static void set(const char* zone) {
        ::setenv("TZ", zone, 1);
        ::tzset();
    }
    bool was_set_ = false;
    std::string before_;
};

} // namespace halvane
