// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"
#include "stored/tele.h"
#include "telescope/moonphase.h"

#include <QDialog>
#include <memory>
#include <optional>

class QLabel;

namespace halvane {

namespace Ui {
class frmtele;
}

/// The telescope panel. The constructor loads it from `tele.vsk`.
/// Error  raises RunTimeFailure for a missing or damaged `pref.vsk` or `tele.vsk`.
class frmtele : public QDialog {
    Q_OBJECT
public:
    explicit frmtele(QWidget* owner = nullptr);
    ~frmtele() override;

    void cmdnow_click();   ///< takes the machine's clock and computes
    void cmdcalc_click();  ///< computes; a Moon below the horizon is told and changes nothing
    void flip_click();     ///< changes the picture and its caption only
    void cmdclose_click(); ///< stores the choices and closes

private:
    void fill_lists();
    void set_sizes();
    void connect_controls();
    void load(const TelescopeSettings& settings);
    TelescopeSettings shown() const;
    void show_picture();
    void show_limb();
    void show_phase();
    int words_width() const;
    QLabel& read_out(const char* name) const;

    std::unique_ptr<Ui::frmtele> ui_;
    Language language_;
    std::optional<double> zenith_angle_; ///< of the bright limb, once computed                 [deg]
    std::optional<MoonPhase> phase_;     ///< once computed
};

/// The texts of `frmtele`.
std::span<const ControlText> frmtele_twins();

} // namespace halvane
