// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"

#include <QDialog>

namespace halvane {

/// Shows how a timetable compares with another table, as text to read and copy.
class ComparisonWindow : public QDialog {
    Q_OBJECT
public:
    ComparisonWindow(const QString& text, Language language, QWidget* owner);
};

} // namespace halvane
