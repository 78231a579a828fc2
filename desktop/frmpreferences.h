// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/preferencesrules.h"
#include "panel/formlanguage.h"

#include <QDialog>
#include <memory>

namespace halvane {

namespace Ui {
class frmpreferences;
}

/// The preferences panel, the only writer of `pref.vsk`. The constructor loads it; a missing or damaged
/// record leaves blank what cannot be read.
class frmpreferences : public QDialog {
    Q_OBJECT
public:
    explicit frmpreferences(QWidget* owner = nullptr);
    ~frmpreferences() override;

    void cbotwi_click();
    void cmddef_click();
    /// Shows this year's summer time at the stored location, by its time zone; tells what keeps it from that.
    void cmdzone_click();
    /// Stores, rebuilds the main panel and closes; a negative angle or a value without times is refused.
    void cmdok_click();

private:
    void fill_lists();
    void set_sizes();
    void show_panel(const PreferencesPanel& panel);
    void show_summer_time(const PreferencesPanel& panel);
    void show_angles(const AngleBoxes& angles);
    PreferencesPanel shown() const;
    void enable_summer_span(bool enabled);
    bool is_usable();
    Language language() const { return form_.language(); }

    std::unique_ptr<Ui::frmpreferences> ui_;
    PreferencesRules form_;
};

} // namespace halvane
