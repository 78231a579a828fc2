// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/limitboxes.h"
#include "hijri/keptrule.h"
#include "panel/formlanguage.h"

#include <QObject>
#include <variant>
#include <vector>

namespace halvane {

namespace Ui {
class frmmonths;
}

/// The boxes of the panel of Hijri months in which a rule is chosen, with what it asks for and the rule that
/// it is compared with. What no rule asks for is hidden.
class RuleChoices : public QObject {
    Q_OBJECT
public:
    /// Fills the lists and gives the boxes their widths. The form's language must have been applied.
    /// Error  raises RunTimeFailure for a missing or damaged `loc.vsk`.
    RuleChoices(QWidget& form, Ui::frmmonths& ui, Language language);

    void show(const HijriChoice& choice);
    HijriChoice shown() const;

    /// The rule with the one that it is compared with, or what is wrong.
    /// In     hijri_year  one of hijri_rule_years
    /// Error  raises RunTimeFailure as settings_of does.
    std::variant<std::vector<HijriSettings>, TwinWords> settings(double hijri_year) const;

    /// The place of the list that is chosen and that a rule asks for; nothing for the stored location.
    std::optional<std::string> listed_place() const;

signals:
    /// The user has chosen something else.
    void changed();

private:
    void fill();
    void fill_classes();
    void set_sizes();
    void connect_boxes();
    void change();
    void change_rule();
    void show_asked();

    const HijriRule& rule() const;
    const HijriRule* compared_rule() const;
    const CataloguedCriterion& criterion() const;
    SeenBefore before() const;
    QList<QLineEdit*> sides() const;

    Ui::frmmonths& ui_;
    Language language_;
    LimitBoxes limits_;
    bool showing_ = false; ///< boxes are filled: their changes are not the user's
};

} // namespace halvane
