// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"

#include <QDialog>
#include <memory>

namespace halvane {

namespace Ui {
class frmqib;
}

/// The texts of `frmqib`.
std::span<const ControlText> frmqib_twins();

/// The Qiblah panel: direction of the current location as a number and on a dial, and the report of the times
/// at which the Sun or its shadow stands there. The constructor loads it; the direction stays that of the
/// location at the loading.
/// Error  raises RunTimeFailure for a missing or damaged `pref.vsk` or `loc.vsk`, and for a location without
///        a direction.
class frmqib : public QDialog {
    Q_OBJECT
public:
    explicit frmqib(QWidget* owner = nullptr);
    ~frmqib() override;

    /// From true north through east, one decimal                                               [deg]
    float direction() const { return direction_; }

    void cmdqib_click();      ///< writes the report and shows it unless it is cancelled
    void cmdshowqmap_click(); ///< opens `frmqmap` and waits for it

private:
    void set_sizes();
    void show_direction();

    std::unique_ptr<Ui::frmqib> ui_;
    Language language_;
    float direction_;
};

} // namespace halvane
