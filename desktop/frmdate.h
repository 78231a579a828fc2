// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/daterules.h"
#include "panel/formlanguage.h"

#include <QDialog>
#include <memory>

namespace halvane {

namespace Ui {
class frmdate;
}

/// The date panel, the only writer of `date.vsk`. The constructor loads it.
/// Error  raises RunTimeFailure for a missing or damaged `pref.vsk` or `date.vsk`.
class frmdate : public QDialog {
    Q_OBJECT
public:
    explicit frmdate(QWidget* owner = nullptr);
    ~frmdate() override;

    void option_click(); ///< lets the boxes of the selected option be used
    /// Stores and closes; a period that ends before it starts, or a year without times, is refused.
    void cmdok_click();

private:
    void set_sizes();
    void show_panel(const DatePanel& panel);
    DatePanel shown() const;
    DateChoice choice() const;
    bool is_usable(const CalculationDate& date);

    std::unique_ptr<Ui::frmdate> ui_;
    Language language_;
};

} // namespace halvane
