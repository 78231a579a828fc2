// SPDX-License-Identifier: MIT
#include "panel/printerchoice.h"

#include "panel/messages.h"
#include "platform/printdialog.h"

#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

namespace halvane {

namespace {

constexpr TwinText no_printer{"There is no printer. The pages can be saved as a PDF file.",
                              "لا توجد طابعة. يمكن حفظ الصفحات في ملف PDF."};

} // namespace

bool choose_printer(QPrinter& printer, QWidget& panel) {
    if (print_dialog_needs_printer() && QPrinterInfo::availablePrinterNames().isEmpty()) {
        const Language language = language_of(panel);
        warn(&panel, panel.windowTitle(), text_of(no_printer, language), language);
        return false;
    }
    const QPointer<QWidget> asked(&panel);
    const QPointer<QPrintDialog> dialog(new QPrintDialog(&printer, &panel));
    const bool agreed = dialog->exec() == QDialog::Accepted;
    if (asked == nullptr)
        return false; // the dialog went with it
    delete dialog;
    return agreed;
}

} // namespace halvane
