// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/crescentrules.h"
#include "panel/formlanguage.h"
#include "stored/visib.h"

#include <QDialog>
#include <QPointer>
#include <memory>
#include <optional>
#include <string>

namespace halvane {

class frmmap;

namespace Ui {
class frmcresv;
}

/// The crescent visibility panel: an approximate date leads to a conjunction and three days; a day and a time
/// lead to the report or the world map. The constructor loads it.
/// Error  raises RunTimeFailure for a missing or damaged `pref.vsk` or `visib.vsk`.
class frmcresv : public QDialog {
    Q_OBJECT
public:
    explicit frmcresv(QWidget* owner = nullptr);
    ~frmcresv() override;

    void cmdprev_click();  ///< finds the conjunction and offers its days
    void cmdnext_click();  ///< takes the machine's date to the crescent that comes next and finds it
    void cmdcalc_click();  ///< stores the choices, writes `visib.out` and shows it
    void cmdmap_click();   ///< stores the choices and opens `frmmap`
    void cmdclose_click(); ///< stores the choices and closes
    void cmdwatch_click(); ///< asks for the watch sheet of the chosen day
    void done(int result) override;

signals:
    /// The watch sheet is wanted, which another room makes.
    /// In     date  the chosen day; none before the conjunction is found
    void watch_wanted(halvane::CrescentKind kind, const std::optional<halvane::DateNumbers>& date);
    /// As frmmap::fine_map_wanted.
    void fine_map_wanted(halvane::CrescentKind kind, double conjunction, int day,
                         const std::string& criterion);

private:
    void fill_lists();
    void set_sizes();
    void connect_controls();
    void load();
    void show_stored(const CrescentSettings& stored);
    CrescentSettings shown() const;
    void reset();
    void reference_clicked();
    void close_map();
    void enable_date_entry();
    void enable_user_time();
    void show_events();
    void show_days();
    int found_width() const;
    bool refuse(const std::optional<CrescentRefusal>& refused); ///< tells it; false for none

    std::unique_ptr<Ui::frmcresv> ui_;
    Language language_;
    CrescentRules form_;
    TwinWords found_; ///< the conjunction that form_ keeps
    QPointer<frmmap> map_;
};

/// The texts of `frmcresv` that do not depend on its choices.
std::span<const ControlText> frmcresv_twins();

} // namespace halvane
