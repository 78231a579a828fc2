// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"

#include <QLabel>

namespace halvane {

/// A line in the lower margin of a panel that says which run goes on and how far it is. It takes no room
/// from the panel's own controls and goes with the panel.
class RunNote : public QLabel {
    Q_OBJECT
public:
    /// In     what  is being computed, in words
    RunNote(QWidget& panel, QString what, Language language);

    /// In     percent  its whole part is shown
    void show_percent(double percent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void take_place();

    QWidget& panel_;
    QString what_;
    Language language_;
    int percent_ = -1;
};

/// The text of the line: "%1" the run, "%2" the percentage.
extern const TwinText running_words;

} // namespace halvane
