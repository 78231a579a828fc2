// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"

namespace halvane {

/// Progress of the batch program: a bar on stderr when it is a terminal; an interrupt (Ctrl-C) is the cancel.
class ConsoleProgress : public Progress {
public:
    ConsoleProgress();
    ~ConsoleProgress() override;
    ConsoleProgress(const ConsoleProgress&) = delete;
    ConsoleProgress& operator=(const ConsoleProgress&) = delete;

    void percent(double value) override;
    bool yield() override;

private:
    bool terminal_;
    int shown_ = -1;
};

} // namespace halvane
