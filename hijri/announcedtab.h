// SPDX-License-Identifier: MIT
#pragma once

#include "hijri/announcedlist.h"
#include "panel/formlanguage.h"

#include <QObject>

namespace halvane {

namespace Ui {
class frmmonths;
}

/// The list of announced starts in the panel of Hijri months: its table, the buttons below it and the count
/// of its faults beside the rule.
class AnnouncedTab : public QObject {
    Q_OBJECT
public:
    AnnouncedTab(QWidget& panel, Ui::frmmonths& ui, Language language);

    /// Reads the stored list; edits that are not saved are gone.
    void read();
    /// Whether the panel may close: the user gives up edits that are not saved.
    bool may_close();

    void cmdsavelist_click();
    void cmdrevert_click();

signals:
    void saved();

private:
    void load();
    void write();
    bool asks(const TwinText& question);
    void show_faults(const AnnouncedList& list);
    void show_buttons();

    QWidget& panel_;
    Ui::frmmonths& ui_;
    Language language_;
};

} // namespace halvane
