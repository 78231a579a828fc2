// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"

#include <QDialog>
#include <array>
#include <memory>
#include <span>
#include <string>

class QGroupBox;
class QRadioButton;

namespace halvane {

namespace Ui {
class frmalerts;
}

/// The panel of `alert.vsk`: what the alert program does at prayer times. Ok starts that program and lets it
/// start with the user's session. The constructor loads the panel.
/// Error  raises RunTimeFailure for a missing or damaged `pref.vsk` or `alert.vsk`.
class frmalerts : public QDialog {
    Q_OBJECT
public:
    explicit frmalerts(QWidget* owner = nullptr);
    ~frmalerts() override;

    void chkpep_click();   ///< the minutes can be entered while the box is checked
    void chkpra_click();   ///< the Athans can be chosen while the box is checked, which clears `chkpopup`
    void chkpopup_click(); ///< checked, it clears `chkpra`
    void cmdok_click();    ///< start-up entry, alert program, `alert.vsk`; every error is passed over

    /// Makes a shortcut through the platform.
    /// In     target          the program, whole path
    ///        folder          name of the user's folder
    ///        shortcut        its name, without an ending
    ///        working_folder  whole path
    static void Create_ShortCut(const std::string& target, const std::string& folder,
                                const std::string& shortcut, const std::string& working_folder,
                                int window_style, int icon_number);

private:
    struct AthanChoice {
        QGroupBox* frame;
        QRadioButton* mecca;
        QRadioButton* jerusalem;
    };
    void load();
    void set_sizes();
    void start_alert_program();
    void save() const;

    std::unique_ptr<Ui::frmalerts> ui_;
    std::array<AthanChoice, 4> athans_; ///< Dhohur, Aser, Maghreb, Isha
};

/// The texts of `frmalerts`.
std::span<const ControlText> frmalerts_twins();

} // namespace halvane
