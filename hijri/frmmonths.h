// SPDX-License-Identifier: MIT
#pragma once

#include "hijri/hijriconverter.h"
#include "hijri/hijrifiles.h"
#include "hijri/keptrule.h"
#include "hijri/monthpage.h"
#include "panel/formlanguage.h"
#include "panel/resultjob.h"

#include <QDialog>
#include <memory>
#include <optional>

class QTimer;

namespace halvane {

class AnnouncedTab;
class RuleChoices;

namespace Ui {
class frmmonths;
}

/// The panel of Hijri months: a year by a rule, beside another one; the page of a month; dates both ways; the
/// list of announced starts. The constructor loads it with the current year by the kept rule; the series must
/// have been loaded.
/// Error  raises RunTimeFailure for a missing or damaged `pref.vsk` or `loc.vsk`.
class frmmonths : public QDialog {
    Q_OBJECT
public:
    explicit frmmonths(QWidget* owner = nullptr);
    ~frmmonths() override;

    /// Whether nothing is being made and nothing waits.
    bool is_settled() const;
    /// What is shown; null where it is nothing.
    std::shared_ptr<const HijriYears> years() const { return years_; }
    std::shared_ptr<const MonthSheet> sheet() const { return sheet_; }

    void cmdsave_click();
    void cmdprint_click();
    void cmduse_click();
    void cmdtabular_click();
    void cmdstop_click();

protected:
    void done(int result) override;

private:
    void fill_lists();
    void set_sizes();
    void connect_controls();
    void connect_choices();
    void connect_buttons();

    // What is chosen.
    void show_today();
    MonthPage shown_page() const;
    HijriMonthNumber shown_month() const;
    void move_year(int years);
    void move_month(int months);
    void change();

    // What is made of it.
    void stop();
    void drop();
    void calculate();
    std::optional<std::vector<HijriSettings>> chosen_rules();
    void refuse(const QString& words);
    void show_nothing(const QString& words);
    void show_failure(const std::exception_ptr& failure);
    void show_year();
    void make_shown_tab();
    void make_sheet();
    void show_sheet();
    void convert();
    void show_converted();
    void show_state(const QString& words);
    void show_buttons();

    // Files and paper.
    void show_used();
    bool is_month_shown() const;
    bool is_ready();
    void save(const QString& name);
    void print();

    struct Converted {
        HijriDayAnswer of_civil;
        HijriDayAnswer of_hijri;
    };

    std::unique_ptr<Ui::frmmonths> ui_;
    Language language_;
    std::unique_ptr<RuleChoices> choices_;
    std::unique_ptr<AnnouncedTab> list_;
    ResultJob<HijriYears>* year_job_;
    ResultJob<MonthSheet>* sheet_job_;
    ResultJob<Converted>* convert_job_;
    QTimer* pause_;        ///< between a change and the calculation
    bool showing_ = false; ///< boxes are filled: their changes are not the user's
    std::optional<HijriSettings> settings_;
    std::shared_ptr<const HijriYears> years_;
    std::shared_ptr<const MonthSheet> sheet_;
    bool is_converted_ = false; ///< whether the dates of the boxes are converted, or are being so
};

} // namespace halvane
