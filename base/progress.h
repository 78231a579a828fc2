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

/// Tells a stage's progress as a part of the whole.
class StageProgress final : public Progress {
public:
    /// In     first, last  what the whole shows at the stage's start and end, 0 to 100
    StageProgress(Progress& whole, double first, double last) : whole_(whole), first_(first), last_(last) {}
    void percent(double value) override { whole_.percent(first_ + (last_ - first_) * value / 100); }
    bool yield() override { return whole_.yield(); }

private:
    Progress& whole_;
    double first_, last_;
};

/// How a run ended.
enum class RunOutcome {
    done,      ///< the report is complete
    cancelled, ///< the report holds the rows so far and its remarks
    refused,   ///< a message was due; see the run's own description
};

} // namespace halvane
