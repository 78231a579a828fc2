// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"
#include "watch/watchpage.h"
#include "watch/watchrules.h"

#include <QDialog>
#include <memory>
#include <optional>
#include <span>

class QTimer;

namespace halvane {

namespace Ui {
class frmwatch;
}

/// The panel of the watch sheet: a day, a place, and the page as it is printed. The constructor loads it with
/// today's evening of the stored location; the series must have been loaded.
/// Error  raises RunTimeFailure for a missing or damaged `pref.vsk`, `loc.vsk` or `zones.csv`.
class frmwatch : public QDialog {
    Q_OBJECT
public:
    explicit frmwatch(QWidget* owner = nullptr);
    ~frmwatch() override;

    /// Shows the crescent of that kind; on today's date where none is given.
    void choose(CrescentKind kind, const std::optional<DateNumbers>& date);

    void cmdsave_click();
    void cmdprint_click();
    /// Goes some days on or back.
    void move_day(int days);
    /// Goes some pages on or back.
    void turn_page(int pages);

    /// Whether the page shows what is chosen, or what is wrong with it is told.
    bool is_settled() const;
    /// What the page shows; none when there is no watch.
    const CrescentWatch* watch() const { return watch_.get(); }

private:
    void fill_lists();
    void set_sizes();
    void connect_controls();
    void show_date(const DateNumbers& date);
    WatchChoice shown() const;
    WatchPage shown_page() const;
    void change_place();
    void change();

    void calculate();
    void show_nothing(const QString& words);
    void show_watch();
    void show_page();
    /// Calculates at once what is chosen; tells what keeps it from a sheet, in a box too.
    bool is_ready();
    void save(const QString& name);
    void print();

    std::unique_ptr<Ui::frmwatch> ui_;
    Language language_;
    QTimer* pause_;                              ///< between a change and the calculation
    bool showing_ = false;                       ///< boxes are filled: their changes are not the user's
    std::shared_ptr<const CrescentWatch> watch_; ///< of what is shown
};

/// The texts of `frmwatch`.
std::span<const ControlText> frmwatch_twins();

} // namespace halvane
