// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"
#include "routines/tdtinput.h"
#include "stored/phase.h"

#include <QDialog>
#include <memory>
#include <optional>

namespace halvane {

namespace Ui {
class frmphase;
}

/// The Moon phases panel: a year's table by the chosen reference and clock. The constructor loads it and sets
/// `tdtinput` to 1 until the panel is closed; every run of another panel states its own.
/// Error  raises RunTimeFailure for a missing or damaged `pref.vsk` or `phase.vsk`.
class frmphase : public QDialog {
    Q_OBJECT
public:
    explicit frmphase(QWidget* owner = nullptr);
    ~frmphase() override;

    void txtyear_change();
    void cmdcalc_click();  ///< writes `results.out` and, unless cancelled, shows it
    void cmdclose_click(); ///< stores what is shown and closes
    void done(int result) override;

private:
    void set_sizes();
    void connect_controls();
    void load();
    PhaseSettings shown() const;

    std::unique_ptr<Ui::frmphase> ui_;
    Language language_;
    std::optional<TdtHold> dynamical_time_;
};

/// The texts of `frmphase`.
std::span<const ControlText> frmphase_twins();

} // namespace halvane
