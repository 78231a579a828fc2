// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"
#include "timetable/profile.h"

#include <QObject>
#include <functional>
#include <vector>

namespace halvane {

/// A value of a box that cannot be taken, with the label below it that tells so.
struct WrongBox {
    const char* control; ///< objectName
    const char* label;   ///< objectName
    QString words;
};

/// The boxes of the timetable's panel that stand for keys of a profile's file, so that a box takes what the
/// file takes.
class ProfileBoxes {
public:
    /// Fills the lists and gives the boxes their widths. The form's language must have been applied.
    ProfileBoxes(QWidget& form, Language language);

    /// Shows the values of a profile.
    void show(const Profile& profile);
    /// Takes what the boxes hold that can be used now; a wrong value leaves the profile's.
    std::vector<WrongBox> take(Profile& profile) const;
    /// `work` is done after each change.
    void when_changed(QObject& owner, const std::function<void()>& work);

private:
    QWidget& form_;
    Language language_;
};

} // namespace halvane
