// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// What a long run tells of itself and asks: the panel's object drives the progress window and one pass of
/// the event loop, the batch program's draws a bar, a test's cancels where it wants.
class Progress {
public:
    virtual ~Progress() = default;
    /// How far the run has come, 0 to 100.
    virtual void percent(double value) = 0;
    /// Lets pending events run; false once the user has cancelled.
    virtual bool yield() = 0;
};

/// Of a run that is over at once: told to nobody, never cancelled.
class NoProgress final : public Progress {
public:
    void percent(double /*value*/) override {}
    bool yield() override { return true; }
};

/// How a run ended.
enum class RunOutcome {
    done,      ///< the report is complete
    cancelled, ///< the report holds the rows so far and its remarks
    refused,   ///< a message was due; see the run's own description
};

} // namespace halvane
