// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/hijriconversion.h"
#include "panel/formlanguage.h"

#include <QDialog>
#include <memory>

namespace halvane {

namespace Ui {
class frmhej;
}

/// The panel that converts dates of the tabular Hijri calendar to the civil one and back. The constructor
/// loads it.
/// Error  raises RunTimeFailure for a missing or damaged `pref.vsk`.
class frmhej : public QDialog {
    Q_OBJECT
public:
    explicit frmhej(QWidget* owner = nullptr);
    ~frmhej() override;

    void option_click(); ///< fills lists and year for the selected direction
    void cmdcon_click();

private:
    void set_sizes();
    ConversionDirection direction() const;
    void show_result(const ConversionAnswer& answer);
    void hide_result();
    void refuse(RefusedDate refused);

    std::unique_ptr<Ui::frmhej> ui_;
    Language language_;
};

} // namespace halvane
