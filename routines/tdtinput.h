// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Which time a Julian day handed to the engine is: 0 UT1, 1 dynamical time (TDT). Default 0. Every run
/// states its own through a TdtSpan; nothing else writes it but an open panel's TdtHold. Single thread.
extern int tdtinput;

/// Sets `tdtinput` for the span of a run. Runs nest: one that starts while another waits ends before it.
class TdtSpan {
public:
    [[nodiscard]] explicit TdtSpan(int value);
    TdtSpan(const TdtSpan&) = delete;
    TdtSpan& operator=(const TdtSpan&) = delete;
    ~TdtSpan();

private:
    int outer_;
};

/// Keeps `tdtinput` at 1 while a panel is open and no run is under way. A panel opens and closes at any time,
/// in the middle of a run too, and never reaches it.
class TdtHold {
public:
    [[nodiscard]] TdtHold();
    TdtHold(const TdtHold&) = delete;
    TdtHold& operator=(const TdtHold&) = delete;
    ~TdtHold();
};

} // namespace halvane
