// SPDX-License-Identifier: MIT
#include "panel/printerchoice.h"

#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>

namespace halvane {

bool choose_printer(QPrinter& printer, QWidget& panel) {
    const QPointer<QWidget> asked(&panel);
    const QPointer<QPrintDialog> dialog(new QPrintDialog(&printer, &panel));
    const bool agreed = dialog->exec() == QDialog::Accepted;
    if (asked == nullptr)
        return false; // the dialog went with it
    delete dialog;
    return agreed;
}

} // namespace halvane
