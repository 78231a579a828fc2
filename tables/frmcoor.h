// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"
#include "stored/coor.h"
#include "tables/ephemeristable.h"

#include <QDialog>
#include <memory>

namespace halvane {

namespace Ui {
class frmcoor;
}

/// The panel of the ephemeris table. The constructor loads it from `coor.vsk`.
/// Error  raises RunTimeFailure for a missing or damaged `pref.vsk` or `coor.vsk`.
class frmcoor : public QDialog {
    Q_OBJECT
public:
    explicit frmcoor(QWidget* owner = nullptr);
    ~frmcoor() override;

    /// Stores the choices, writes the table with the progress window and shows it; the panel goes with it.
    void cmdcalc_click();
    /// Stores the choices and closes.
    void cmdclose_click();

private:
    void fill_lists();
    void set_sizes();
    void load(const EphemerisSettings& settings);
    EphemerisSettings shown() const;
    void refuse(const TableRefusal& refused);

    std::unique_ptr<Ui::frmcoor> ui_;
    Language language_;
};

/// The texts of `frmcoor`.
std::span<const ControlText> frmcoor_twins();

} // namespace halvane
