// SPDX-License-Identifier: MIT
#include "hijri/rulechoices.h"

#include "hijri/monthsrules.h"
#include "hijri/seenbefore.h"
#include "panel/choicelists.h"
#include "panel/namelabel.h"
#include "panel/numberlists.h"
#include "panel/panelsupport.h"
#include "panel/placenames.h"
#include "stored/loclist.h"
#include "ui_frmmonths.h"

#include <QScopedValueRollback>

namespace halvane {

namespace {

constexpr TwinText stored_place_words{"The st&ored location: %1", "الموقع المحفو&ظ: %1"};
constexpr TwinText no_rule{"No other rule", "بلا مقارنة"};
constexpr const char* longest_angle = "-888.8";

/// The open list is as wide as its entries, whatever the width of its box.
void open_wide(QComboBox& list) {
    list.view()->setMinimumWidth(list.view()->sizeHintForColumn(0));
}

} // namespace

RuleChoices::RuleChoices(QWidget& form, Ui::frmmonths& ui, Language language)
    : ui_(ui), language_(language), limits_(form) {
    fill();
    set_sizes();
    connect_boxes();
}

void RuleChoices::fill() {
    ui_.cbocompare->addItem(text_of(no_rule, language_), QString());
    for (QComboBox* list : {ui_.cborule, ui_.cbocompare})
        for (const HijriRule& one : hijri_rules())
            list->addItem(text_of(one.name, language_), QString::fromLatin1(one.key));
    const QString stored =
        shortened(QString::fromStdString(read_loc().name)).replace(u'&', QStringLiteral("&&"));
    ui_.optstored->setText(text_of(stored_place_words, language_).arg(isolated(stored)));
    ui_.cboplace->addItems(sorted_place_names(readable_location_list()));
    filter_while_typing(*ui_.cboplace);
    for (const CataloguedCriterion& one : catalogued_criteria())
        ui_.cbocriterion->addItem(text_of(one.name, language_), QString::fromLatin1(one.key));
    for (const SeenBefore one : seen_befores())
        ui_.cbobefore->addItem(text_of(words_of(one), language_), static_cast<int>(one));
}

/// The classes of the chosen criterion; what the eye sees is proposed.
void RuleChoices::fill_classes() {
    const QScopedValueRollback quiet(showing_, true);
    ui_.cboclass->clear();
    for (const TwinText& name : classes_to_see(criterion()))
        ui_.cboclass->addItem(text_of(name, language_));
    ui_.cboclass->setCurrentIndex(static_cast<int>(criterion().by_eye) - 1);
    open_wide(*ui_.cboclass);
}

void RuleChoices::set_sizes() {
    limits_.shape(language_);
    for (QLineEdit* angle : sides())
        shape_number_box(*angle, longest_angle);
    for (QComboBox* list :
         {ui_.cborule, ui_.cboplace, ui_.cbocriterion, ui_.cboclass, ui_.cbobefore, ui_.cbocompare})
        limit_width(*list);
    for (QComboBox* list : {ui_.cborule, ui_.cbocriterion, ui_.cbobefore, ui_.cbocompare})
        open_wide(*list);
}

void RuleChoices::connect_boxes() {
    for (QComboBox* list : {ui_.cborule, ui_.cbocompare, ui_.cbobefore})
        connect(list, &QComboBox::currentIndexChanged, this, &RuleChoices::change_rule);
    connect(ui_.cbocriterion, &QComboBox::currentIndexChanged, this, [this] {
        fill_classes();
        change_rule();
    });
    for (QAbstractButton* option :
         std::initializer_list<QAbstractButton*>{ui_.optlisted, ui_.optpart, ui_.chkannounced, ui_.chkwhole})
        connect(option, &QAbstractButton::toggled, this, &RuleChoices::change_rule);
    for (QLineEdit* box : limits_.boxes() + sides())
        connect(box, &QLineEdit::textChanged, this, &RuleChoices::change);
    connect(ui_.cboclass, &QComboBox::currentIndexChanged, this, &RuleChoices::change);
    connect(ui_.cboplace, &QComboBox::currentTextChanged, this, &RuleChoices::change);
}

void RuleChoices::change() {
    if (!showing_)
        emit changed();
}

void RuleChoices::change_rule() {
    if (showing_)
        return;
    show_asked();
    emit changed();
}

QList<QLineEdit*> RuleChoices::sides() const {
    return {ui_.txtwest, ui_.txteast, ui_.txtsouth, ui_.txtnorth};
}

const HijriRule& RuleChoices::rule() const {
    return *hijri_rule(ui_.cborule->currentData().toString().toStdString());
}

const HijriRule* RuleChoices::compared_rule() const {
    return hijri_rule(ui_.cbocompare->currentData().toString().toStdString());
}

const CataloguedCriterion& RuleChoices::criterion() const {
    return *catalogued_criterion(ui_.cbocriterion->currentData().toString().toStdString());
}

SeenBefore RuleChoices::before() const {
    return static_cast<SeenBefore>(ui_.cbobefore->currentData().toInt());
}

/// What the chosen rules ask for is shown, nothing else.
void RuleChoices::show_asked() {
    const AskedParts asked = asked_of(rule(), compared_rule(), before());
    ui_.fraplace->setVisible(asked.place);
    ui_.optstored->setVisible(!asked.is_listed);
    if (asked.is_listed)
        ui_.optlisted->setChecked(true);
    ui_.fracriterion->setVisible(asked.criterion);
    ui_.fraregion->setVisible(asked.region);
    ui_.cboplace->setEnabled(ui_.optlisted->isChecked());
    for (QLineEdit* side : sides())
        side->setEnabled(ui_.optpart->isChecked());
    ui_.chkwhole->setVisible(ui_.chkannounced->isChecked());
    limits_.show_those_of(criterion().key);
    ui_.lbltold->setText(text_of(told_words(rule(), criterion()), language_));
}

void RuleChoices::show(const HijriChoice& choice) {
    const QScopedValueRollback quiet(showing_, true);
    choose_data(*ui_.cborule, QString::fromStdString(choice.rule));
    (choice.place ? ui_.optlisted : ui_.optstored)->setChecked(true);
    if (choice.place)
        ui_.cboplace->setEditText(QString::fromStdString(*choice.place));
    choose_data(*ui_.cbocriterion, QString::fromStdString(choice.criterion));
    limits_.show(choice.limits);
    fill_classes();
    if (choice.seen_class)
        ui_.cboclass->setCurrentIndex(static_cast<int>(*choice.seen_class) - 1);
    (choice.region == HijriChoice{}.region ? ui_.optworld : ui_.optpart)->setChecked(true);
    for (const auto& [box, angle] : {std::pair{ui_.txtwest, choice.region.west},
                                     {ui_.txteast, choice.region.east},
                                     {ui_.txtsouth, choice.region.south},
                                     {ui_.txtnorth, choice.region.north}})
        box->setText(QString::number(angle));
    choose_data(*ui_.cbobefore, static_cast<int>(choice.before));
    ui_.chkannounced->setChecked(choice.announced != AnnouncedUse::none);
    ui_.chkwhole->setChecked(choice.announced == AnnouncedUse::whole);
    show_asked();
}

HijriChoice RuleChoices::shown() const {
    HijriChoice choice;
    choice.rule = rule().key;
    if (ui_.optlisted->isChecked())
        choice.place = text_of(*ui_.cboplace);
    choice.criterion = criterion().key;
    choice.seen_class = static_cast<std::size_t>(ui_.cboclass->currentIndex()) + 1;
    if (ui_.optpart->isChecked())
        choice.region = {number_in(*ui_.txtwest), number_in(*ui_.txtsouth), number_in(*ui_.txteast),
                         number_in(*ui_.txtnorth)};
    limits_.take(choice.criterion, choice.limits);
    choice.before = before();
    choice.announced = !ui_.chkannounced->isChecked() ? AnnouncedUse::none
                       : ui_.chkwhole->isChecked()    ? AnnouncedUse::whole
                                                      : AnnouncedUse::sound;
    return choice;
}

std::variant<std::vector<HijriSettings>, TwinWords> RuleChoices::settings(double hijri_year) const {
    HijriChoice choice = shown();
    if (!ui_.fracriterion->isHidden())
        if (const auto wrong = limits_.take(choice.criterion, choice.limits))
            return TwinWords(*wrong);
    std::vector<HijriChoice> choices{choice};
    if (const HijriRule* other = compared_rule()) {
        choice.rule = other->key;
        choice.announced = AnnouncedUse::none;
        choices.push_back(choice);
    }
    std::vector<HijriSettings> rules;
    for (const HijriChoice& one : choices) {
        const HijriAnswer answer = settings_of(one, civil_year_of(hijri_year));
        if (!answer.settings)
            return answer.words;
        rules.push_back(*answer.settings);
    }
    return rules;
}

std::optional<std::string> RuleChoices::listed_place() const {
    const bool is_listed = ui_.optlisted->isChecked() && !ui_.fraplace->isHidden();
    return is_listed ? std::optional(text_of(*ui_.cboplace)) : std::nullopt;
}

} // namespace halvane
