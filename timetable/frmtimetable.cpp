// SPDX-License-Identifier: MIT
#include "timetable/frmtimetable.h"

#include "base/failure.h"
#include "base/pagewords.h"
#include "calendar/hijriconversion.h"
#include "calendar/locationclock.h"
#include "panel/choicelists.h"
#include "panel/formpage.h"
#include "panel/frmwait.h"
#include "panel/messages.h"
#include "panel/namelabel.h"
#include "panel/numberbox.h"
#include "panel/numberlists.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "panel/placenames.h"
#include "panel/statewords.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/loclist.h"
#include "stored/outputfile.h"
#include "stored/textfile.h"
#include "timetable/columnlist.h"
#include "timetable/comparetable.h"
#include "timetable/comparisonwindow.h"
#include "timetable/pageprinter.h"
#include "timetable/profilefile.h"
#include "timetable/sheetnotes.h"
#include "timetable/timetablecaptions.h"
#include "timetable/timetablejob.h"
#include "timetable/timetableoutput.h"
#include "timetable/timetablepdf.h"
#include "ui_frmtimetable.h"

#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>
#include <algorithm>

namespace halvane {

namespace {

constexpr TwinText tab_timetable{"&Timetable", "التق&ويم"};
constexpr TwinText tab_rules{"&Rules", "القوا&عد"};

struct KindEntry {
    SpanKind kind;
    TwinText text;
};

constexpr KindEntry kinds[] = {
    {SpanKind::month, {"A month", "شهر ميلادي"}},
    {SpanKind::year, {"A year", "سنة ميلادية"}},
    {SpanKind::hijri_month, {"A Hijri month", "شهر هجري"}},
    {SpanKind::hijri_year, {"A Hijri year", "سنة هجرية"}},
    {SpanKind::dates, {"From a date to a date", "من تاريخ إلى تاريخ"}},
};

constexpr TwinText stored_place_words{"The stored location: %1", "الموقع المحفوظ: %1"};
constexpr TwinText preferences_entry{"Preferences", "الخيارات"};
constexpr TwinText new_entry{"New profile", "قواعد جديدة"};
constexpr TwinText no_authority{"None", "لا شيء"};
constexpr TwinText changed_words{"Changed, not stored.", "معدلة و غير محفوظة."};
constexpr TwinText neutral_words{
    "These are the rules of the Preferences, and change there. Save them under a name to change them here.",
    "هذه قواعد الخيارات، و تعدل هناك. احفظها باسم لتعديلها هنا."};
constexpr TwinText save_title{"Save the Timetable", "حفظ التقويم"};
constexpr TwinText compare_title{"Compare with a Table", "المقارنة مع جدول"};
constexpr TwinText compare_filter{"Tables (*.csv *.txt)", "جداول \u200E(*.csv *.txt)"};
constexpr TwinText profile_title{"Profile", "مجموعة القواعد"};
constexpr TwinText replace_question{"There is a profile \"%1\" already. Replace it?",
                                    "توجد مجموعة قواعد باسم \"%1\". هل تريد استبدالها؟"};
constexpr TwinText delete_question{"Are you sure you want to delete the profile \"%1\"?",
                                   "هل أنت متأكد من حذف مجموعة القواعد \"%1\"؟"};

constexpr const char* longest_year = "-88888";
constexpr int pause_after_change = 200; // [ms]
constexpr int shown_columns = 8;
constexpr int least_preview_lines = 12;

// Keys of the entries of the list of rules; that of the preferences is empty.
constexpr QLatin1String stored_key("p:");
constexpr QLatin1String authority_key("a:");
constexpr QLatin1String new_key("n:");

constexpr const char* wrong_labels[] = {"lblspanwrong",   "lblplacewrong",  "lblzonewrong", "lblcolumnswrong",
                                        "lblnamewrong",   "lblangleswrong", "lblhighwrong", "lblminuteswrong",
                                        "lbliqamahwrong", "lblalarmwrong"};

/// Where a wrong part of a choice is told, and the control that is to be mended.
std::pair<const char*, const char*> place_of(ChoicePart part, SpanKind kind) {
    switch (part) {
    case ChoicePart::span:
        return {kind == SpanKind::dates ? "cbofromday" : "txtyear", "lblspanwrong"};
    case ChoicePart::place:
        return {"cboplace", "lblplacewrong"};
    case ChoicePart::zone:
        return {"cbozone", "lblzonewrong"};
    case ChoicePart::columns:
        return {"lstcolumns", "lblcolumnswrong"};
    case ChoicePart::rules:
        break;
    }
    return {"txtmaghreb", "lblangleswrong"};
}

QString join(const std::vector<TwinWords>& words, Language language) {
    QStringList lines;
    for (const TwinWords& line : words)
        lines << text_of(line, language);
    return lines.join(u'\n');
}

} // namespace

frmtimetable::frmtimetable(QWidget* owner, HijriProvider hijri)
    : QDialog(owner), ui_(std::make_unique<Ui::frmtimetable>()), language_(stored_language()),
      hijri_(std::move(hijri)), job_(new TimetableJob(this)), pause_(new QTimer(this)) {
    ui_->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    pause_->setSingleShot(true);
    pause_->setInterval(pause_after_change);
    apply_language(*this, frmtimetable_twins(), language_);
    ui_->tabpages->setTabText(0, text_of(tab_timetable, language_));
    ui_->tabpages->setTabText(1, text_of(tab_rules, language_));
    boxes_ = std::make_unique<ProfileBoxes>(*this, language_);
    fill_lists();
    const LocationClock clock = location_clock(read_pref(), read_loc(), universal_time());
    show_span(month_of(clock.time));
    fill_profiles();
    profile_ = neutral_profile(read_pref());
    show_profile(profile_);
    change_place();
    set_sizes();
    select_whole_text_on_focus(*this);
    connect_controls();
    fit_form(*this, Qt::Horizontal | Qt::Vertical);
    show_whole_page(*this, *ui_->areapreview, *ui_->preview);
    calculate();
}

frmtimetable::~frmtimetable() = default;

// --- Lists and sizes ---

void frmtimetable::fill_lists() {
    for (const KindEntry& entry : kinds)
        ui_->cbokind->addItem(text_of(entry.text, language_), static_cast<int>(entry.kind));
    for (QComboBox* days : {ui_->cbofromday, ui_->cbotoday})
        fill_with_days(*days);
    for (QComboBox* months : {ui_->cbofrommonth, ui_->cbotomonth})
        for (const std::string& name : conversion_months(ConversionDirection::civil_to_hijri, language_))
            months->addItem(QString::fromStdString(name));
    const QString stored = shortened(QString::fromStdString(read_loc().name));
    ui_->optstored->setText(
        text_of(stored_place_words, language_).arg(isolated(stored)).replace(u'&', QStringLiteral("&&")));
    ui_->cboplace->addItems(sorted_place_names(readable_location_list()));
    for (const std::string& zone : zone_names())
        ui_->cbozone->addItem(QString::fromStdString(zone));
    for (QComboBox* list : {ui_->cboplace, ui_->cbozone})
        filter_while_typing(*list);
    ui_->cboauthority->addItem(text_of(no_authority, language_), QString());
    for (const Authority& authority : authorities())
        ui_->cboauthority->addItem(text_of(authority.name, language_), QString::fromLatin1(authority.key));
}

/// The months of the kind's calendar.
void frmtimetable::fill_months() {
    const bool hijri = kind_ == SpanKind::hijri_month;
    ui_->cbomonth->clear();
    for (const std::string& name : conversion_months(
             hijri ? ConversionDirection::hijri_to_civil : ConversionDirection::civil_to_hijri, language_))
        ui_->cbomonth->addItem(QString::fromStdString(name));
}

void frmtimetable::fill_profiles() {
    const QSignalBlocker quiet(ui_->cboprofile);
    ui_->cboprofile->clear();
    ui_->cboprofile->addItem(text_of(preferences_entry, language_), QString());
    for (const std::string& name : profile_names())
        ui_->cboprofile->addItem(QString::fromStdString(name), stored_key + QString::fromStdString(name));
    for (const Authority& authority : authorities())
        ui_->cboprofile->addItem(text_of(authority.name, language_),
                                 authority_key + QString::fromLatin1(authority.key));
    if (profile_key_ == new_key)
        ui_->cboprofile->addItem(text_of(new_entry, language_), QString(new_key));
    choose_data(*ui_->cboprofile, profile_key_);
}

void frmtimetable::set_sizes() {
    set_spacing(*this);
    for (QLineEdit* year : {ui_->txtyear, ui_->txtfromyear, ui_->txttoyear})
        shape_number_box(*year, longest_year);
    for (QComboBox* list :
         {ui_->cboplace, ui_->cbozone, ui_->cboprofile, ui_->cboauthority, ui_->cborule, ui_->cbouse})
        limit_width(*list);
    for (QComboBox* list : {ui_->cboprofile, ui_->cboauthority})
        list->view()->setMinimumWidth(list->view()->sizeHintForColumn(0));
    for (const char* name : wrong_labels)
        make_bold(*findChild<QLabel*>(QString::fromLatin1(name)));
    const int line = fontMetrics().lineSpacing();
    ui_->lstcolumns->setFixedHeight(shown_columns * (line + space_unit(*this) / 2));
    ui_->areapreview->setMinimumHeight(least_preview_lines * line);
    for (QScrollArea* area : {ui_->areachoices, ui_->arearules})
        shape_choices(*area, least_preview_lines);
    for (QLayout* column : {ui_->tabtimetablecolumn, ui_->tabrulescolumn})
        column->setContentsMargins({});
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    ui_->areapreview->setMinimumWidth(ui_->preview->minimumSizeHint().width() + bar);
}

// --- Controls ---

void frmtimetable::connect_controls() {
    connect_choices();
    connect_buttons();
    connect(pause_, &QTimer::timeout, this, &frmtimetable::calculate);
    connect(job_, &TimetableJob::advanced, this,
            [this](int percent) { show_state(text_of(calculating_words, language_).arg(percent)); });
    connect(job_, &TimetableJob::ended, this, &frmtimetable::show_timetable);
    for (QScrollArea* area : {ui_->areachoices, ui_->arearules})
        keep_focus_in_sight(*area);
}

void frmtimetable::connect_choices() {
    connect(ui_->cbokind, &QComboBox::currentIndexChanged, this, &frmtimetable::change_kind);
    for (QComboBox* list :
         {ui_->cbomonth, ui_->cbofromday, ui_->cbofrommonth, ui_->cbotoday, ui_->cbotomonth})
        connect(list, &QComboBox::currentIndexChanged, this, &frmtimetable::change);
    for (QLineEdit* year : {ui_->txtyear, ui_->txtfromyear, ui_->txttoyear})
        connect(year, &QLineEdit::textChanged, this, &frmtimetable::change);
    connect(ui_->optlisted, &QRadioButton::toggled, this, &frmtimetable::change_place);
    connect(ui_->cboplace, &QComboBox::currentTextChanged, this, &frmtimetable::change_place);
    connect(ui_->optzonerules, &QRadioButton::toggled, this, [this](bool rules) {
        ui_->cbozone->setEnabled(rules);
        change();
    });
    connect(ui_->cbozone, &QComboBox::currentTextChanged, this, &frmtimetable::change);
    connect(ui_->cboprofile, &QComboBox::currentIndexChanged, this,
            [this] { choose_profile(ui_->cboprofile->currentData().toString()); });
    connect(ui_->lstcolumns, &QListWidget::itemChanged, this, &frmtimetable::change);
    connect(ui_->cbonames, &QComboBox::currentIndexChanged, this, &frmtimetable::change_names);
    connect(ui_->cboauthority, &QComboBox::activated, this, &frmtimetable::take_chosen_authority);
    boxes_->when_changed(*this, [this] { change(); });
}

void frmtimetable::connect_buttons() {
    connect(ui_->cmdup, &QPushButton::clicked, this, [this] { move_column(-1); });
    connect(ui_->cmddown, &QPushButton::clicked, this, [this] { move_column(1); });
    connect(ui_->cmdprevious, &QPushButton::clicked, this, [this] { turn_page(-1); });
    connect(ui_->cmdnext, &QPushButton::clicked, this, [this] { turn_page(1); });
    connect(ui_->cmdsaveprofile, &QPushButton::clicked, this, &frmtimetable::cmdsaveprofile_click);
    connect(ui_->cmddelete, &QPushButton::clicked, this, &frmtimetable::cmddelete_click);
    connect(ui_->cmdnew, &QPushButton::clicked, this, &frmtimetable::cmdnew_click);
    connect(ui_->cmdsave, &QPushButton::clicked, this, &frmtimetable::cmdsave_click);
    connect(ui_->cmdprint, &QPushButton::clicked, this, &frmtimetable::cmdprint_click);
    connect(ui_->cmdcompare, &QPushButton::clicked, this, &frmtimetable::cmdcompare_click);
    connect(ui_->cmdclose, &QPushButton::clicked, this, &QDialog::reject);
}

// --- What is chosen ---

SpanChoice frmtimetable::shown_span() const {
    SpanChoice span;
    span.kind = static_cast<SpanKind>(ui_->cbokind->currentData().toInt());
    span.year = number_in(*ui_->txtyear);
    span.month = ui_->cbomonth->currentIndex() + 1;
    span.from = {number_in(*ui_->txtfromyear), ui_->cbofrommonth->currentIndex() + 1.0,
                 number_in(*ui_->cbofromday)};
    span.to = {number_in(*ui_->txttoyear), ui_->cbotomonth->currentIndex() + 1.0, number_in(*ui_->cbotoday)};
    return span;
}

std::optional<std::string> frmtimetable::shown_place() const {
    if (!ui_->optlisted->isChecked())
        return std::nullopt;
    return text_of(*ui_->cboplace);
}

PrayerNames frmtimetable::shown_names() const {
    return ui_->cbonames->currentData() == QLatin1String("common") ? PrayerNames::common
                                                                   : PrayerNames::halvane;
}

/// What the boxes say; `wrong` takes those that say nothing that can be used.
HijriReckoningPointer frmtimetable::reckoning(std::vector<WrongBox>& wrong) const {
    try {
        return hijri_ ? hijri_() : nullptr;
    } catch (const RunTimeFailure& failure) {
        wrong.push_back({"cbokind", "lblspanwrong", words_of(failure, language_)});
        return nullptr;
    }
}

TimetableChoice frmtimetable::shown(std::vector<WrongBox>& wrong) const {
    TimetableChoice choice{shown_span(), shown_place(), std::nullopt, profile_};
    std::vector<WrongBox> wrong_hijri;
    choice.hijri = reckoning(wrong_hijri);
    if (ui_->optzonerules->isChecked())
        choice.zone = text_of(*ui_->cbozone);
    wrong = boxes_->take(choice.profile);
    wrong.insert(wrong.begin(), wrong_hijri.begin(), wrong_hijri.end());
    if (!choice.profile.preferences)
        choice.profile.authority = ui_->cboauthority->currentData().toString().toStdString();
    choice.profile.page.columns = checked_columns(*ui_->lstcolumns);
    return choice;
}

void frmtimetable::show_span(const SpanChoice& span) {
    kind_ = span.kind;
    const bool dates = span.kind == SpanKind::dates;
    const QScopedValueRollback quiet(showing_, true);
    choose_data(*ui_->cbokind, static_cast<int>(span.kind));
    fill_months();
    ui_->cbomonth->setCurrentIndex(static_cast<int>(span.month) - 1);
    ui_->txtyear->setText(QString::number(span.year));
    ui_->cbofromday->setCurrentIndex(static_cast<int>(span.from.day) - 1);
    ui_->cbofrommonth->setCurrentIndex(static_cast<int>(span.from.month) - 1);
    ui_->txtfromyear->setText(QString::number(span.from.year));
    ui_->cbotoday->setCurrentIndex(static_cast<int>(span.to.day) - 1);
    ui_->cbotomonth->setCurrentIndex(static_cast<int>(span.to.month) - 1);
    ui_->txttoyear->setText(QString::number(span.to.year));
    for (QWidget* part : std::initializer_list<QWidget*>{ui_->lblmonth, ui_->cbomonth})
        part->setVisible(is_one_month(span.kind));
    for (QWidget* part : std::initializer_list<QWidget*>{ui_->lblyear, ui_->txtyear})
        part->setVisible(!dates);
    for (QWidget* part :
         std::initializer_list<QWidget*>{ui_->lblfrom, ui_->cbofromday, ui_->cbofrommonth, ui_->txtfromyear,
                                         ui_->lblto, ui_->cbotoday, ui_->cbotomonth, ui_->txttoyear})
        part->setVisible(dates);
}

void frmtimetable::change_kind() {
    if (showing_)
        return;
    SpanChoice before = shown_span();
    before.kind = kind_;
    std::vector<WrongBox> wrong; // told with the next timetable
    show_span(in_kind(before, static_cast<SpanKind>(ui_->cbokind->currentData().toInt()), reckoning(wrong)));
    change();
}

/// A place's own time zone is proposed with it.
void frmtimetable::change_place() {
    ui_->cboplace->setEnabled(ui_->optlisted->isChecked());
    const std::optional<std::string> place = shown_place();
    const QString zone = QString::fromStdString(known_zone_of(place));
    const bool by_rules = place && !zone.isEmpty();
    (by_rules ? ui_->optzonerules : ui_->optzonestored)->setChecked(true);
    ui_->cbozone->setEnabled(by_rules);
    if (!zone.isEmpty())
        ui_->cbozone->setCurrentText(zone);
    change();
}

void frmtimetable::change_names() {
    rename_columns(*ui_->lstcolumns, shown_names(), language_);
}

void frmtimetable::move_column(int by) {
    move_current_column(*ui_->lstcolumns, by);
    change();
}

// --- Rules ---

/// Puts a profile into all boxes, without a calculation.
void frmtimetable::show_profile(const Profile& profile) {
    const QScopedValueRollback quiet(showing_, true);
    boxes_->show(profile);
    show_columns(*ui_->lstcolumns, profile.page.columns, profile.page.names, language_);
    ui_->txtname->setText(QString::fromStdString(profile.name));
    choose_data(*ui_->cboauthority, QString::fromStdString(profile.authority));
    show_neutral();
    show_source();
}

/// The rules of the preferences are shown, and changed in their own panel.
void frmtimetable::show_neutral() {
    const bool neutral = profile_.preferences.has_value();
    show_words(*ui_->lblneutral, neutral ? text_of(neutral_words, language_) : QString());
    for (QWidget* group : std::initializer_list<QWidget*>{ui_->fraauthority, ui_->fraangles, ui_->frahigh,
                                                          ui_->framinutes, ui_->fraiqamah})
        group->setEnabled(!neutral);
    ui_->cmddelete->setEnabled(profile_key_.startsWith(stored_key));
}

void frmtimetable::show_source() {
    const Authority* const authority =
        find_authority(ui_->cboauthority->currentData().toString().toStdString());
    show_words(*ui_->lblsource, authority == nullptr
                                    ? QString()
                                    : isolated(QString::fromUtf8(authority->region) + QStringLiteral(". ") +
                                               QString::fromUtf8(authority->source)));
}

/// Takes the rules of an entry. A stored profile has a page of its own; the other rules leave the page.
void frmtimetable::choose_profile(const QString& key) {
    std::vector<WrongBox> wrong;
    const PageSettings page = shown(wrong).profile.page;
    try {
        Profile profile;
        if (key.startsWith(stored_key))
            profile = read_profile(key.mid(stored_key.size()).toStdString());
        else if (key.startsWith(authority_key))
            profile = authority_profile(*find_authority(key.mid(authority_key.size()).toStdString()));
        else if (key != new_key)
            profile = neutral_profile(read_pref());
        if (!key.startsWith(stored_key))
            profile.page = page;
        profile_ = std::move(profile);
    } catch (const RunTimeFailure& failure) {
        fill_profiles();
        warn_of_file(this, words_of(failure, language_), language_);
        return;
    }
    profile_key_ = key;
    show_profile(profile_);
    change();
}

/// Chooses an entry of the list anew, after the list has changed.
void frmtimetable::select_profile(const QString& key) {
    profile_key_ = key;
    fill_profiles();
    choose_profile(key);
}

void frmtimetable::take_chosen_authority() {
    std::vector<WrongBox> wrong;
    Profile profile = shown(wrong).profile;
    if (const Authority* authority = find_authority(profile.authority)) {
        const QScopedValueRollback quiet(showing_, true);
        take_authority(profile, *authority);
        boxes_->show(profile);
    }
    show_source();
    change();
}

/// Whether a profile's name is free, or the user replaces what has it.
bool frmtimetable::may_take_name(const std::string& name) {
    const std::vector<std::string> names = profile_names();
    const bool own = profile_key_ == stored_key + QString::fromStdString(name);
    if (own || std::find(names.begin(), names.end(), name) == names.end())
        return true;
    return ask_before_loss(this, text_of(profile_title, language_),
                           text_of(replace_question, language_).arg(isolated(QString::fromStdString(name))),
                           language_);
}

void frmtimetable::cmdsaveprofile_click() {
    if (!numbers_are_meant(*this, language_))
        return;
    std::vector<WrongBox> wrong;
    Profile profile = shown(wrong).profile;
    profile.preferences.reset();
    profile.name = ui_->txtname->text().trimmed().toStdString();
    const std::optional<TwinWords> refused = refused_profile_name(profile.name);
    show_words(*ui_->lblnamewrong, refused ? text_of(*refused, language_) : QString());
    if (refused) {
        ask_again(*ui_->txtname);
        return;
    }
    if (!wrong.empty()) {
        calculate();
        findChild<QWidget*>(QString::fromLatin1(wrong.front().control))->setFocus(Qt::OtherFocusReason);
        return;
    }
    warning_of_failure(*this, language_, [this, &profile] {
        require_storable(profile);
        if (!may_take_name(profile.name))
            return;
        write_profile(profile);
        select_profile(stored_key + QString::fromStdString(profile.name));
    });
}

void frmtimetable::cmddelete_click() {
    const QString name = profile_key_.mid(stored_key.size());
    if (!ask_before_loss(this, text_of(profile_title, language_),
                         text_of(delete_question, language_).arg(isolated(name)), language_))
        return;
    warning_of_failure(*this, language_, [this, &name] {
        delete_profile(name.toStdString());
        select_profile({});
    });
}

void frmtimetable::cmdnew_click() {
    select_profile(new_key);
    ui_->txtname->setFocus(Qt::OtherFocusReason);
}

// --- The page ---

/// What is shown is calculated after a short pause, in which more may change.
void frmtimetable::change() {
    if (showing_)
        return;
    job_->cancel();
    timetable_.reset();
    pause_->start();
}

bool frmtimetable::is_settled() const {
    return !pause_->isActive() && !job_->is_running();
}

void frmtimetable::calculate() {
    pause_->stop();
    job_->cancel();
    timetable_.reset();
    std::vector<WrongBox> wrong;
    const TimetableChoice choice = shown(wrong);
    show_rules();
    ChoiceAnswer answer = settings_of(choice);
    if (tell_wrong(wrong, answer.wrong)) {
        ui_->preview->show_sheets({}, choice.profile.page);
        show_words(*ui_->lblzonediff, {});
        show_page();
        return;
    }
    job_->start(loaded_theory(), *answer.settings);
}

/// Tells every wrong value below its box, the first below the page too, and hides what was told before.
/// Returns whether there is any.
bool frmtimetable::tell_wrong(const std::vector<WrongBox>& boxes, const std::vector<WrongChoice>& choices) {
    std::vector<WrongBox> all = boxes;
    for (const WrongChoice& choice : choices) {
        const auto [control, label] = place_of(choice.part, shown_span().kind);
        all.push_back({control, label, text_of(choice.words, language_)});
    }
    for (const char* name : wrong_labels) {
        QStringList words;
        for (const WrongBox& wrong : all)
            if (std::string_view(wrong.label) == name)
                words << wrong.words;
        show_words(*findChild<QLabel*>(QString::fromLatin1(name)), words.join(u'\n'));
    }
    if (all.empty())
        return false;
    show_state(text_of(nothing_shown_words, language_).arg(all.front().words));
    return true;
}

/// The rules in a line, and whether they are other than those that were chosen.
void frmtimetable::show_rules() {
    std::vector<WrongBox> wrong;
    const Profile profile = shown(wrong).profile;
    QString words = with_figures_in_order(text_of(rules_words(profile, profile.page.names), language_));
    if (profile != profile_)
        words += u'\n' + text_of(changed_words, language_);
    ui_->lblrules->setText(words);
}

void frmtimetable::show_timetable() {
    if (job_->failure() != nullptr) {
        ui_->preview->show_sheets({}, PageSettings{});
        show_page();
        show_failure(job_->failure());
        return;
    }
    const int page = ui_->preview->page();
    timetable_ = job_->take_result();
    const PageSettings& settings = timetable_->settings.profile.page;
    ui_->preview->show_sheets(sheets_of(*timetable_, settings), settings);
    ui_->preview->show_page(page);
    show_words(*ui_->lblzonediff, join(zone_difference_words(*timetable_), language_));
    show_state({});
    show_page();
}

void frmtimetable::show_failure(std::exception_ptr failure) {
    try {
        std::rethrow_exception(std::move(failure));
    } catch (const RunTimeFailure& told) {
        show_state(words_of(told, language_));
    }
}

/// Which page is shown, and where one can go from it.
void frmtimetable::show_page() {
    const PageView& preview = *ui_->preview;
    const bool month = is_one_month(shown_span().kind);
    ui_->lblpage->setText(preview.pages() == 0
                              ? QString()
                              : text_of(words_of_page(preview.page() + 1, preview.pages()), language_));
    ui_->cmdprevious->setEnabled(month || preview.page() > 0);
    ui_->cmdnext->setEnabled(month || preview.page() + 1 < preview.pages());
    QString spoken;
    if (preview.pages() > 0) {
        const TimetableSheet& sheet = preview.sheets()[static_cast<std::size_t>(preview.page())];
        spoken = text_of(sheet.title, language_) + QStringLiteral(", ") + text_of(sheet.place, language_);
    }
    ui_->areapreview->setAccessibleDescription(spoken);
}

void frmtimetable::turn_page(int by) {
    if (is_one_month(shown_span().kind)) {
        settle_numbers(*this);
        show_span(moved(shown_span(), by));
        calculate();
        return;
    }
    ui_->preview->show_page(std::max(0, ui_->preview->page() + by));
    ui_->areapreview->verticalScrollBar()->setValue(0);
    show_page();
}

// --- Files and paper ---

void frmtimetable::show_state(const QString& words) {
    ui_->lblstate->setText(words);
}

/// The settings that are shown, once every number is meant; a wrong value gets the focus.
std::optional<TimetableSettings> frmtimetable::meant_settings() {
    if (!numbers_are_meant(*this, language_))
        return std::nullopt;
    std::vector<WrongBox> wrong;
    const TimetableChoice choice = shown(wrong);
    ChoiceAnswer answer = settings_of(choice);
    if (!tell_wrong(wrong, answer.wrong))
        return std::move(answer.settings);
    const char* name =
        wrong.empty() ? place_of(answer.wrong.front().part, choice.span.kind).first : wrong.front().control;
    auto* const control = findChild<QWidget*>(QString::fromLatin1(name));
    for (QWidget* page : {ui_->tabtimetable, ui_->tabrules})
        if (page->isAncestorOf(control))
            ui_->tabpages->setCurrentWidget(page);
    control->setFocus(Qt::OtherFocusReason);
    return std::nullopt;
}

/// The timetable of these settings: the one that is shown, or a new one with the progress window.
/// Returns nothing after a cancel.
std::optional<Timetable> frmtimetable::calculated(const TimetableSettings& settings) {
    if (timetable_ && timetable_->settings.profile == settings.profile)
        return timetable_;
    WaitProgress progress(windowTitle(), this);
    return make_timetable(loaded_theory(), settings, progress);
}

// The panel may be closed and deleted while a dialog stands or a run goes on.
void frmtimetable::cmdsave_click() {
    std::optional<TimetableSettings> settings = meant_settings();
    if (!settings)
        return;
    const QPointer<frmtimetable> self(this);
    const QList<SaveKind> file_kinds = timetable_kinds(language_);
    const QString name = choose_save_file(
        this, text_of(save_title, language_),
        QString::fromStdString(file_name_of("timetable-" + settings->place.location.name) + ".") +
            file_kinds.front().suffix,
        file_kinds);
    if (self == nullptr || name.isEmpty())
        return;
    warning_of_failure(*this, language_, [this, &name, &settings] { save(name, std::move(*settings)); });
}

/// The bytes of a file, with the progress window where they take long; nothing after a cancel.
std::optional<std::string> frmtimetable::file_of(const Timetable& timetable, const PageSettings& page,
                                                 TimetableFormat format) {
    constexpr std::size_t at_once = 1100; // days: three years
    if (timetable.rows.size() <= at_once)
        return bytes_of(timetable, page, format);
    WaitProgress progress(windowTitle(), this);
    return bytes_of(timetable, page, format, progress);
}

void frmtimetable::save(const QString& name, TimetableSettings settings) {
    const QPointer<frmtimetable> self(this);
    const TimetableFormat format = format_of_name(name.toStdString()).value_or(TimetableFormat::pdf);
    if (format == TimetableFormat::display_csv)
        settings.profile.page.columns = display_columns();
    PageSettings page = settings.profile.page;
    const bool own_columns = page.columns != profile_.page.columns;
    const std::optional<Timetable> timetable = calculated(settings);
    if (!timetable)
        return;
    if (format == TimetableFormat::csv && !own_columns)
        page = with_rules(*timetable, page);
    const std::optional<std::string> bytes = file_of(*timetable, page, format);
    if (!bytes)
        return;
    save_result(name.toStdString(), *bytes);
    if (self != nullptr)
        show_state(saved_text(name, language_));
}

void frmtimetable::cmdprint_click() {
    std::optional<TimetableSettings> settings = meant_settings();
    if (!settings)
        return;
    const QPointer<frmtimetable> self(this);
    warning_of_failure(*this, language_, [this, &self, &settings] {
        const std::optional<Timetable> timetable = calculated(*settings);
        if (self != nullptr && timetable)
            print(*timetable);
    });
}

void frmtimetable::print(const Timetable& timetable) {
    const Timetable printed = timetable;
    const PageSettings& page = printed.settings.profile.page;
    const std::vector<TimetableSheet> sheets = sheets_of(printed, page);
    print_document({page.paper, [&] { return painted_pages(sheets, page); },
                    [&] { return file_of(printed, page, TimetableFormat::pdf); }},
                   *this, language_);
}

void frmtimetable::cmdcompare_click() {
    std::optional<TimetableSettings> settings = meant_settings();
    if (!settings)
        return;
    const QPointer<frmtimetable> self(this);
    const QString name =
        choose_open_file(this, text_of(compare_title, language_), text_of(compare_filter, language_));
    if (self == nullptr || name.isEmpty())
        return;
    warning_of_failure(*this, language_, [this, &name, &settings] { compare(name, std::move(*settings)); });
}

void frmtimetable::compare(const QString& name, TimetableSettings settings) {
    const QPointer<frmtimetable> self(this);
    const std::string path = name.toStdString();
    const ForeignTable table = foreign_table_of_text(read_text_file(path), path);
    settings.profile.page.columns = table.columns; // whichever the page shows
    const std::optional<Timetable> timetable = calculated(settings);
    if (self == nullptr || !timetable)
        return;
    const TwinWords words = comparison_text(compare_table(table, *timetable), shown_names());
    auto* const window = new ComparisonWindow(text_of(words, language_), language_, this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
}

} // namespace halvane
