// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"
#include "desktop/mainload.h"
#include "panel/formlanguage.h"
#include "panel/panelsupport.h"
#include "prayer/nextprayer.h"
#include "prayer/prayerrun.h"

#include <QWidget>
#include <array>
#include <memory>
#include <span>

class QLabel;
class QPushButton;
class QTimer;

namespace halvane {

namespace Ui {
class frmmain;
}

/// The main panel: today's prayer times, the date and clock lines and a button for every tool.
class frmmain : public QWidget, private MainPanelFace {
    Q_OBJECT
public:
    /// `panels` are those whose buttons open something; the others do nothing.
    explicit frmmain(std::span<const Panel> panels = {});
    ~frmmain() override;

    /// The load step.
    /// Error  raises RunTimeFailure, see load_main_panel.
    void load();

    /// Unloads (every other panel closes, the labels return to their design), loads again and shows.
    void reload();

    void cmdcom_clicked();  ///< runs the prayer report
    void cmdmoon_clicked(); ///< runs the Moon report
    void cmdhel_clicked();  ///< shows `help.txt`
    void cmdext_clicked();  ///< unloads every open form, which ends the program
    void timertime_event(); ///< refreshes the clock lines, the date of the times, the next prayer's mark

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void show_language(Language language) override;
    void show_today(const PrayerTexts& times) override;
    void show_location(const std::string& name) override;
    void show_date(const std::string& line) override;
    void show_clock() override;

    bool eventFilter(QObject* watched, QEvent* event) override;
    void tell_hijri();
    void tell_folder();
    void unload();
    void run_report(const QPushButton& button,
                    RunPointer (*run_of)(const TheoryPointer&, const MachineTime&));
    void tell_high_latitude();
    void connect_buttons(std::span<const Panel> panels);
    void set_icons();
    void set_sizes();
    void equalise_columns();
    void set_arabic_fonts();
    void mark_next_prayer();
    static void show_line(QLabel& label, const std::optional<std::string>& line);
    void mark_column(std::size_t column, const QString& remaining, bool next);
    void show_series();

    std::unique_ptr<Ui::frmmain> ui_;
    QTimer* timertime_;
    MainPanelState state_;
    KeptReckoning kept_rule_; ///< of the date line's tool tip
    bool sizing_ = false;
    std::array<QLabel*, 6> titles_;
    std::array<QLabel*, 6> times_;
    std::array<QLabel*, 6> remaining_;
};

/// The texts of `frmmain`.
std::span<const ControlText> frmmain_twins();

} // namespace halvane
