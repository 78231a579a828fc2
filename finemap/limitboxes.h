// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/criteriacatalogue.h"
#include "panel/formlanguage.h"

#include <QList>
#include <optional>
#include <span>
#include <string_view>

class QLineEdit;

namespace halvane {

/// The boxes of a form for the limits of the criteria that have some of the user's: "lbldanjon" and
/// "txtdanjon" for Danjon's limit, the same with lag, altitude, elongation and age for the user's own.
class LimitBoxes {
public:
    explicit LimitBoxes(QWidget& form);

    /// Gives the labels the texts of the language and the boxes their width.
    void shape(Language language);
    void show(const CriteriaSettings& limits);
    /// Shows the boxes of a criterion, and no others; none for a criterion without limits.
    void show_those_of(std::string_view criterion);

    /// Takes every limit; an empty box is none, but of Danjon's.
    /// Returns what is wrong with those of a criterion; nothing where they are limits.
    std::optional<TwinText> take(std::string_view criterion, CriteriaSettings& limits) const;

    QList<QLineEdit*> boxes() const;
    /// The texts of the labels.
    static std::span<const ControlText> twins();

private:
    QLineEdit& box(const char* name) const;

    QWidget& form_;
};

} // namespace halvane
