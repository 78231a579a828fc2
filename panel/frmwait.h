// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"
#include "panel/formlanguage.h"
#include "panel/remainingtime.h"
#include "panel/runnote.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QPointer>
#include <cstdint>
#include <memory>

namespace halvane {

namespace Ui {
class frmwait;
}

/// The shared cancel flag: 0 running, -1 once `bcancel` was pressed or the window was closed.
extern std::int16_t waitcancel;

/// The progress window of every long run.
class frmwait : public QDialog {
    Q_OBJECT
public:
    explicit frmwait(QWidget* owner = nullptr);
    ~frmwait() override;

    /// Takes the stored language and starts at nothing.
    /// In     what  what is being computed, in words
    void load(const QString& what);
    /// In     p  0 to 100; the text shows its whole part
    void show_percent(double p);
    /// In     seconds  since the load; the remaining time is told by them once it is sound
    void show_percent(double p, double seconds);
    /// Comes in front of the run's panel, or by itself where there is none.
    void show_over(QWidget* panel);
    /// Stands in front of the panel again once no other panel keeps the panel waiting.
    void stay_over_panel();
    /// Cancels every run under way and leaves the screen.
    void reject() override;

protected:
    bool event(QEvent* event) override;

private:
    void set_fonts(Language language);

    std::unique_ptr<Ui::frmwait> ui_;
    Language language_ = Language::english;
    QElapsedTimer clock_;
    RemainingTime remaining_;
    QPointer<QWindow> over_;
};

/// The texts of `frmwait`.
std::span<const ControlText> frmwait_twins();

/// A run of a report with the progress window shown for as long as this object lives. Runs may nest, since
/// any button can be pressed during a run: they share the window, and Cancel ends them all. The run's panel
/// says so too for as long.
class WaitProgress : public Progress {
public:
    /// In     what   is being computed, in words
    ///        panel  from which the run was started; it may go while the run goes on
    explicit WaitProgress(const QString& what, QWidget* panel = nullptr);
    WaitProgress(const WaitProgress&) = delete;
    WaitProgress& operator=(const WaitProgress&) = delete;
    ~WaitProgress() override;

    void percent(double p) override;
    bool yield() override;

private:
    friend void cancel_runs();
    QString what_;
    QPointer<QWidget> panel_;
    QPointer<RunNote> note_;
    bool cancelled_ = false;
};

/// Cancels every run under way; each ends at its next yield.
void cancel_runs();

} // namespace halvane
