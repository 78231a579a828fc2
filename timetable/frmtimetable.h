// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"
#include "timetable/profileboxes.h"
#include "timetable/timetablerules.h"

#include <QDialog>
#include <functional>
#include <memory>
#include <optional>

class QComboBox;
class QLabel;
class QLineEdit;
class QTimer;

namespace halvane {

namespace Ui {
class frmtimetable;
}

class TimetableJob;

/// The panel of timetables: choices, rules, and the page as it is printed. The constructor loads it with the
/// current month of the stored location by the stored preferences; the series must have been loaded. Its
/// Hijri dates follow the reckoning that it is given, asked anew for each timetable; a failure to give one is
/// told beside the days.
/// Error  raises RunTimeFailure for a missing or damaged `pref.vsk`, `loc.vsk` or `zones.csv`.
class frmtimetable : public QDialog {
    Q_OBJECT
public:
    /// Gives the reckoning of Hijri dates; null for the tabular calendar.
    using HijriProvider = std::function<HijriReckoningPointer()>;

    explicit frmtimetable(QWidget* owner = nullptr, HijriProvider hijri = {});
    ~frmtimetable() override;

    void cmdsave_click();
    void cmdprint_click();
    void cmdcompare_click();
    void cmdsaveprofile_click();
    void cmddelete_click();
    void cmdnew_click();
    /// Goes a page on or back; a timetable of one month goes to the next month.
    void turn_page(int by);

    /// Whether the page shows what is chosen, or what is wrong with it is told.
    bool is_settled() const;

private:
    void fill_lists();
    void fill_months();
    void fill_profiles();
    void set_sizes();
    void connect_controls();
    void connect_choices();
    void connect_buttons();

    // What the boxes hold.
    SpanChoice shown_span() const;
    HijriReckoningPointer reckoning(std::vector<WrongBox>& wrong) const;
    TimetableChoice shown(std::vector<WrongBox>& wrong) const;
    std::optional<std::string> shown_place() const;
    PrayerNames shown_names() const;

    void show_span(const SpanChoice& span);
    void show_profile(const Profile& profile);
    void show_rules();
    void show_neutral();
    void show_source();
    void choose_profile(const QString& key);
    void select_profile(const QString& key);
    void take_chosen_authority();

    void change_kind();
    void change_place();
    void change_names();
    void move_column(int by);
    void change();

    // The page.
    void calculate();
    bool tell_wrong(const std::vector<WrongBox>& boxes, const std::vector<WrongChoice>& choices);
    void show_timetable();
    void show_page();
    void show_failure(std::exception_ptr failure);

    // What the buttons need.
    std::optional<TimetableSettings> meant_settings();
    std::optional<Timetable> calculated(const TimetableSettings& settings);
    std::optional<std::string> file_of(const Timetable& timetable, const PageSettings& page,
                                       TimetableFormat format);
    void save(const QString& name, TimetableSettings settings);
    void print(const Timetable& timetable);
    void compare(const QString& name, TimetableSettings settings);
    bool may_take_name(const std::string& name);
    void show_state(const QString& words);

    std::unique_ptr<Ui::frmtimetable> ui_;
    Language language_;
    HijriProvider hijri_;
    std::unique_ptr<ProfileBoxes> boxes_;
    TimetableJob* job_;
    QTimer* pause_;                      ///< between a change and the calculation
    SpanKind kind_ = SpanKind::month;    ///< whose boxes are shown
    bool showing_ = false;               ///< boxes are filled: their changes are not the user's
    Profile profile_;                    ///< as it was chosen or stored
    QString profile_key_;                ///< of its entry in the list
    std::optional<Timetable> timetable_; ///< of what is shown
};

} // namespace halvane
