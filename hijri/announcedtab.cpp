// SPDX-License-Identifier: MIT
#include "hijri/announcedtab.h"

#include "panel/choicelists.h"
#include "panel/messages.h"
#include "ui_frmmonths.h"

#include <QPointer>

namespace halvane {

namespace {

constexpr TwinText faults_words{"Lines of the list with a fault, which are left out: %1",
                                "أسطر القائمة التي فيها خطأ و لا تستعمل: %1"};
constexpr TwinText list_title{"Announced Months", "الأشهر المعلنة"};
constexpr TwinText unsaved_question{
    "The announced months have edits that are not saved. Close and lose them?",
    "في الأشهر المعلنة تعديلات غير محفوظة. هل تريد الإغلاق و فقدها؟"};
constexpr TwinText revert_question{"Are you sure you want to take back all edits that are not saved?",
                                   "هل أنت متأكد من التراجع عن كل التعديلات غير المحفوظة؟"};
constexpr TwinText changed_question{"Another program has changed the list since it was read. Replace it?",
                                    "عدل برنامج آخر القائمة منذ قراءتها. هل تريد استبدالها؟"};

} // namespace

AnnouncedTab::AnnouncedTab(QWidget& panel, Ui::frmmonths& ui, Language language)
    : panel_(panel), ui_(ui), language_(language) {
    connect(ui_.tblannounced, &AnnouncedTable::edited, this, &AnnouncedTab::show_buttons);
    connect(ui_.cmdremove, &QPushButton::clicked, ui_.tblannounced, &AnnouncedTable::remove_current);
    connect(ui_.cmdsavelist, &QPushButton::clicked, this, &AnnouncedTab::cmdsavelist_click);
    connect(ui_.cmdrevert, &QPushButton::clicked, this, &AnnouncedTab::cmdrevert_click);
}

void AnnouncedTab::read() {
    warning_of_failure(panel_, language_, [this] { load(); });
}

void AnnouncedTab::load() {
    const AnnouncedList list = read_announced();
    show_faults(list);
    ui_.tblannounced->show_list(list, language_);
    show_buttons();
}

bool AnnouncedTab::may_close() {
    return !ui_.tblannounced->list_edit().is_changed() || asks(unsaved_question);
}

/// Whether the user says yes, and the panel is there still.
bool AnnouncedTab::asks(const TwinText& question) {
    const QPointer<AnnouncedTab> self(this);
    return ask_before_loss(&panel_, text_of(list_title, language_), text_of(question, language_),
                           language_) &&
           self != nullptr;
}

void AnnouncedTab::show_faults(const AnnouncedList& list) {
    show_words(*ui_.lblfaults, list.problems.empty()
                                   ? QString()
                                   : text_of(faults_words, language_).arg(AnnouncedEdit(list).faulty_rows()));
}

void AnnouncedTab::show_buttons() {
    const AnnouncedEdit& edit = ui_.tblannounced->list_edit();
    ui_.cmdremove->setEnabled(edit.rows() > 0);
    ui_.cmdsavelist->setEnabled(edit.is_changed());
    ui_.cmdrevert->setEnabled(edit.is_changed());
}

void AnnouncedTab::cmdsavelist_click() {
    warning_of_failure(panel_, language_, [this] { write(); });
}

void AnnouncedTab::write() {
    const bool is_as_read = read_announced().rows == ui_.tblannounced->list_edit().stored();
    if (!is_as_read && !asks(changed_question))
        return;
    write_announced(ui_.tblannounced->list_edit().list().rows);
    load();
    ui_.tblannounced->setFocus();
    emit saved();
}

void AnnouncedTab::cmdrevert_click() {
    // The panel may be closed and deleted while a message stands: nothing of it is used behind one.
    if (asks(revert_question))
        warning_of_failure(panel_, language_, [this] {
            load();
            ui_.tblannounced->setFocus();
        });
}

} // namespace halvane
