// SPDX-License-Identifier: MIT
#include "hijri/frmmonths.h"

#include "calendar/hijriconversion.h"
#include "calendar/locationclock.h"
#include "hijri/announcedtab.h"
#include "hijri/hijritexts.h"
#include "hijri/monthpainter.h"
#include "hijri/monthpaper.h"
#include "hijri/monthscaptions.h"
#include "hijri/monthsrules.h"
#include "hijri/rulechoices.h"
#include "panel/choicelists.h"
#include "panel/formpage.h"
#include "panel/messages.h"
#include "panel/namelabel.h"
#include "panel/numberbox.h"
#include "panel/numberlists.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "panel/statewords.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/outputfile.h"
#include "timetable/pagedigits.h"
#include "timetable/pageprinter.h"
#include "timetable/timetableplaces.h"
#include "ui_frmmonths.h"

#include <QPointer>
#include <QScopedValueRollback>
#include <QScreen>
#include <QTimer>
#include <algorithm>

namespace halvane {

namespace {

constexpr TwinText tabs[] = {
    {"&Year", "السن&ة"}, {"Mont&h", "ال&شهر"}, {"Co&nvert", "التح&ويل"}, {"Announced", "ال&معلنة"}};

constexpr TwinText both_languages{"Both", "كلتاهما"};
constexpr TwinText used_words{"Used: %1", "المستعملة: %1"};
constexpr TwinText save_title{"Save Hijri Months", "حفظ الأشهر الهجرية"};

struct KindWords {
    HijriFormat format;
    TwinText words;
};
constexpr KindWords kinds[] = {
    {HijriFormat::pdf, {"PDF, the printed page", "PDF، الصفحة المطبوعة"}},
    {HijriFormat::csv, {"CSV table", "جدول CSV"}},
    {HijriFormat::json, {"JSON data", "بيانات JSON"}},
    {HijriFormat::ics, {"Calendar file", "ملف تقويم"}},
    {HijriFormat::text, {"Text", "نص"}},
};

constexpr PageLanguage page_languages[] = {PageLanguage::english, PageLanguage::arabic, PageLanguage::both};

constexpr const char* longest_year = "-88888";
constexpr int pause_after_change = 200; // [ms]
constexpr int months_of_a_year = 12;

/// In     of_month  else those of a year, which has no page
QList<SaveKind> save_kinds(bool of_month, Language language) {
    QList<SaveKind> all;
    for (const KindWords& kind : kinds)
        if (of_month || kind.format != HijriFormat::pdf)
            all += save_kind(text_of(kind.words, language), QString::fromLatin1(ending_of(kind.format)));
    return all;
}

HijriFormat format_of_name(const QString& name, HijriFormat usual) {
    for (const HijriFormat format : hijri_formats())
        if (name.endsWith(u'.' + QLatin1String(ending_of(format)), Qt::CaseInsensitive))
            return format;
    return usual;
}

void fill_months(QComboBox& list, ConversionDirection direction, Language language) {
    for (const std::string& name : conversion_months(direction, language))
        list.addItem(QString::fromStdString(name));
}

/// A converted date with its weekday, and what is told of its month.
QString day_words(const HijriDay& day, bool as_hijri, Language language) {
    const std::string date = as_hijri ? long_hijri_date(day, language) : long_date(day.day_number, language);
    const std::string notes = notes_text(day.month, language);
    return QString::fromStdString(notes.empty() ? date : date + " (" + notes + ")");
}

} // namespace

frmmonths::frmmonths(QWidget* owner)
    : QDialog(owner), ui_(std::make_unique<Ui::frmmonths>()), language_(stored_language()),
      year_job_(new ResultJob<HijriYears>(this)), sheet_job_(new ResultJob<MonthSheet>(this)),
      convert_job_(new ResultJob<Converted>(this)), pause_(new QTimer(this)) {
    ui_->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    pause_->setSingleShot(true);
    pause_->setInterval(pause_after_change);
    apply_language(*this, frmmonths_twins(), language_);
    for (int tab = 0; tab < ui_->tabpages->count(); ++tab)
        ui_->tabpages->setTabText(tab, text_of(tabs[tab], language_));
    choices_ = std::make_unique<RuleChoices>(*this, *ui_, language_);
    list_ = std::make_unique<AnnouncedTab>(*this, *ui_, language_);
    fill_lists();
    set_sizes(); // while all that a rule may ask for is there
    show_today();
    std::optional<HijriChoice> kept;
    warning_of_failure(*this, language_, [&kept] { kept = kept_hijri_rule(); });
    choices_->show(kept.value_or(HijriChoice{}));
    select_whole_text_on_focus(*this);
    connect_controls();
    fit_form(*this, Qt::Horizontal | Qt::Vertical);
    ui_->txtyear->setFocus(); // else a panel whose first control is a button begins on the one of Enter
    constexpr double of_the_screen = 0.85;
    resize((screen()->availableSize() * of_the_screen).expandedTo(size()));
    list_->read();
    show_used();
    calculate();
}

frmmonths::~frmmonths() = default;

// --- Lists and sizes ---

void frmmonths::fill_lists() {
    fill_months(*ui_->cbomonth, ConversionDirection::hijri_to_civil, language_);
    fill_months(*ui_->cbohijrimonth, ConversionDirection::hijri_to_civil, language_);
    fill_months(*ui_->cbocivilmonth, ConversionDirection::civil_to_hijri, language_);
    fill_with_days(*ui_->cbocivilday);
    constexpr int hijri_days = 30;
    fill_with_numbers(*ui_->cbohijriday, hijri_days);
    ui_->cbolanguage->addItems(
        {QStringLiteral("English"), QStringLiteral("العربية"), text_of(both_languages, language_)});
    ui_->cbolanguage->setCurrentIndex(language_ == Language::arabic ? 1 : 0);
    ui_->cbodigits->addItems({text_of(western_entry, language_), text_of(arabic_entry, language_)});
    ui_->cbopaper->addItems({QStringLiteral("A4"), QStringLiteral("Letter")});
}

void frmmonths::set_sizes() {
    constexpr int least_lines = 12;
    set_spacing(*this);
    for (QLineEdit* year : {ui_->txtyear, ui_->txtcivilyear, ui_->txthijriyear})
        shape_number_box(*year, longest_year);
    make_bold(*ui_->lblwrong);
    const int line = fontMetrics().lineSpacing();
    for (QWidget* area : std::initializer_list<QWidget*>{ui_->tblyear, ui_->tblannounced, ui_->areapreview})
        area->setMinimumHeight(least_lines / 2 * line);
    for (QLabel* answer : {ui_->lbltohijri, ui_->lbltocivil})
        answer->setMinimumHeight(line);
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    ui_->areapreview->setMinimumWidth(ui_->preview->minimumSizeHint().width() + bar);
    shape_choices(*ui_->areachoices, least_lines);
}

// --- Controls ---

void frmmonths::connect_controls() {
    connect(pause_, &QTimer::timeout, this, &frmmonths::calculate);
    connect(year_job_, &BesideJob::advanced, this,
            [this](int percent) { show_state(text_of(calculating_words, language_).arg(percent)); });
    connect(year_job_, &BesideJob::ended, this, &frmmonths::show_year);
    connect(sheet_job_, &BesideJob::advanced, this,
            [this](int percent) { show_state(text_of(calculating_words, language_).arg(percent)); });
    connect(sheet_job_, &BesideJob::ended, this, &frmmonths::show_sheet);
    connect(convert_job_, &BesideJob::ended, this, &frmmonths::show_converted);
    connect(ui_->tabpages, &QTabWidget::currentChanged, this, &frmmonths::make_shown_tab);
    connect(ui_->tblyear, &QTableWidget::cellActivated, this, [this](int row) {
        ui_->cbomonth->setCurrentIndex(row);
        ui_->tabpages->setCurrentWidget(ui_->tabmonth);
    });
    connect(list_.get(), &AnnouncedTab::saved, this, [this] {
        if (ui_->chkannounced->isChecked())
            calculate();
    });
    keep_focus_in_sight(*ui_->areachoices);
    connect_choices();
    connect_buttons();
}

void frmmonths::connect_choices() {
    connect(ui_->txtyear, &QLineEdit::textChanged, this, &frmmonths::change);
    connect(choices_.get(), &RuleChoices::changed, this, &frmmonths::change);
    connect(ui_->cbomonth, &QComboBox::currentIndexChanged, this, &frmmonths::make_sheet);
    for (QComboBox* list : {ui_->cbolanguage, ui_->cbodigits, ui_->cbopaper})
        connect(list, &QComboBox::currentIndexChanged, this, &frmmonths::show_sheet);
    for (QComboBox* list : {ui_->cbocivilday, ui_->cbocivilmonth, ui_->cbohijriday, ui_->cbohijrimonth})
        connect(list, &QComboBox::currentIndexChanged, this, &frmmonths::convert);
    for (QLineEdit* year : {ui_->txtcivilyear, ui_->txthijriyear})
        connect(year, &QLineEdit::textChanged, this, &frmmonths::convert);
}

void frmmonths::connect_buttons() {
    connect(ui_->cmdyearbefore, &QPushButton::clicked, this, [this] { move_year(-1); });
    connect(ui_->cmdyearafter, &QPushButton::clicked, this, [this] { move_year(1); });
    connect(ui_->cmdprevious, &QPushButton::clicked, this, [this] { move_month(-1); });
    connect(ui_->cmdnext, &QPushButton::clicked, this, [this] { move_month(1); });
    connect(ui_->cmdeditlist, &QPushButton::clicked, this,
            [this] { ui_->tabpages->setCurrentWidget(ui_->tabannounced); });
    connect(ui_->cmdadd, &QPushButton::clicked, this, [this] { ui_->tblannounced->add(shown_month()); });
    connect(ui_->cmduse, &QPushButton::clicked, this, &frmmonths::cmduse_click);
    connect(ui_->cmdtabular, &QPushButton::clicked, this, &frmmonths::cmdtabular_click);
    connect(ui_->cmdstop, &QPushButton::clicked, this, &frmmonths::cmdstop_click);
    connect(ui_->cmdsave, &QPushButton::clicked, this, &frmmonths::cmdsave_click);
    connect(ui_->cmdprint, &QPushButton::clicked, this, &frmmonths::cmdprint_click);
    connect(ui_->cmdclose, &QPushButton::clicked, this, &QDialog::reject);
}

// --- What is chosen ---

void frmmonths::show_today() {
    const MachineTime today = location_clock(read_pref(), read_loc(), universal_time()).time;
    const HijriDate hijri = hijri_of_civil(today.year, today.month, today.day);
    for (QLineEdit* year : {ui_->txtyear, ui_->txthijriyear})
        year->setText(QString::number(hijri.year));
    for (QComboBox* month : {ui_->cbomonth, ui_->cbohijrimonth})
        month->setCurrentIndex(static_cast<int>(hijri.month) - 1);
    ui_->cbohijriday->setCurrentIndex(static_cast<int>(hijri.day) - 1);
    ui_->cbocivilday->setCurrentIndex(today.day - 1);
    ui_->cbocivilmonth->setCurrentIndex(today.month - 1);
    ui_->txtcivilyear->setText(QString::number(today.year));
}

MonthPage frmmonths::shown_page() const {
    return {page_languages[std::max(0, ui_->cbolanguage->currentIndex())],
            ui_->cbopaper->currentIndex() == 1 ? PaperSize::letter : PaperSize::a4,
            ui_->cbodigits->currentIndex() == 1 ? PageDigits::arabic : PageDigits::western};
}

HijriMonthNumber frmmonths::shown_month() const {
    return HijriMonthNumber::of(static_cast<int>(number_in(*ui_->txtyear)),
                                ui_->cbomonth->currentIndex() + 1);
}

void frmmonths::move_year(int years) {
    settle_numbers(*this);
    ui_->txtyear->setText(QString::number(number_in(*ui_->txtyear) + years));
    calculate();
}

void frmmonths::move_month(int months) {
    const int month = ui_->cbomonth->currentIndex() + months;
    if (month >= 0 && month < months_of_a_year) {
        ui_->cbomonth->setCurrentIndex(month);
        return;
    }
    {
        const QScopedValueRollback quiet(showing_, true);
        ui_->cbomonth->setCurrentIndex(month < 0 ? months_of_a_year - 1 : 0);
    }
    move_year(months);
}

/// What is chosen is calculated after a short pause, in which more may change.
void frmmonths::change() {
    drop();
    show_buttons();
    pause_->start();
}

// --- What is made of it ---

bool frmmonths::is_settled() const {
    return !pause_->isActive() && !year_job_->is_running() && !sheet_job_->is_running() &&
           !convert_job_->is_running();
}

void frmmonths::stop() {
    pause_->stop();
    year_job_->cancel();
    sheet_job_->cancel();
    convert_job_->cancel();
}

/// Nothing that was made for other choices stays.
void frmmonths::drop() {
    stop();
    settings_.reset();
    years_.reset();
    ui_->tblyear->setRowCount(0);
    show_words(*ui_->lblwrong, {});
    show_state({});
    show_sheet();
    is_converted_ = false;
    for (QLabel* answer : {ui_->lbltohijri, ui_->lbltocivil})
        answer->clear();
}

void frmmonths::calculate() {
    drop();
    try {
        const std::optional<std::vector<HijriSettings>> rules = chosen_rules();
        if (!rules)
            return;
        settings_ = rules->front();
        const int year = static_cast<int>(number_in(*ui_->txtyear));
        show_state(text_of(calculating_words, language_).arg(0));
        year_job_->start([theory = loaded_theory(), rules = *rules, year](Progress& progress) {
            return hijri_years(theory, rules, year, year, progress);
        });
    } catch (const RunTimeFailure& failure) {
        show_nothing(words_of(failure, language_));
    }
    show_buttons();
    make_shown_tab();
}

/// The rule with the one that it is compared with; nothing where one is wrong, which is told.
std::optional<std::vector<HijriSettings>> frmmonths::chosen_rules() {
    const double year = number_in(*ui_->txtyear);
    if (const std::optional<TwinWords> refused = refused_hijri_year(year)) {
        refuse(text_of(*refused, language_));
        return std::nullopt;
    }
    const auto settings = choices_->settings(year);
    if (const auto* wrong = std::get_if<TwinWords>(&settings)) {
        refuse(text_of(*wrong, language_));
        return std::nullopt;
    }
    return std::get<std::vector<HijriSettings>>(settings);
}

void frmmonths::refuse(const QString& words) {
    show_words(*ui_->lblwrong, words);
    show_nothing(words);
}

void frmmonths::show_nothing(const QString& words) {
    show_state(text_of(nothing_shown_words, language_).arg(words));
    show_buttons();
}

void frmmonths::show_failure(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const RunTimeFailure& told) {
        show_nothing(words_of(told, language_));
    }
}

void frmmonths::show_year() {
    if (year_job_->failure() != nullptr) {
        show_failure(year_job_->failure());
        return;
    }
    years_ = year_job_->result();
    ui_->tblyear->show_year(*years_, language_);
    show_state(text_of(summary_of(*years_), language_));
    show_buttons();
    make_shown_tab();
}

/// What the shown tab shows beside the year.
void frmmonths::make_shown_tab() {
    if (sheet_ == nullptr && !sheet_job_->is_running())
        make_sheet();
    if (!is_converted_)
        convert();
    show_buttons();
}

bool frmmonths::is_month_shown() const {
    return ui_->tabpages->currentWidget() == ui_->tabmonth;
}

void frmmonths::make_sheet() {
    if (showing_)
        return;
    sheet_job_->cancel();
    show_sheet();
    if (!is_month_shown() || years_ == nullptr)
        return;
    try {
        const std::optional<TimetablePlace> place = chosen_place(choices_->listed_place());
        sheet_job_->start([theory = loaded_theory(), settings = *settings_, month = shown_month(),
                           place = place ? *place : stored_place()](Progress& progress) {
            return month_sheet(theory, settings, month, place, progress);
        });
    } catch (const RunTimeFailure& failure) {
        show_nothing(words_of(failure, language_));
    }
    show_buttons();
}

/// Shows the page of the month that was made; an empty one where there is none.
void frmmonths::show_sheet() {
    sheet_ = sheet_job_->result();
    const MonthPage page = shown_page();
    ui_->cbodigits->setEnabled(page.language != PageLanguage::english);
    if (sheet_job_->failure() != nullptr)
        show_failure(sheet_job_->failure());
    else if (sheet_ != nullptr)
        show_state(text_of(summary_of(*years_), language_));
    ui_->preview->show_pages(sheet_ != nullptr ? painted_pages(sheet_, page)
                                               : PaintedPages{page.paper, PageLanguage::english, 0, nullptr});
    ui_->areapreview->setAccessibleDescription(
        sheet_ != nullptr ? text_of(month_words(sheet_->month.number), language_) : QString());
    show_buttons();
}

void frmmonths::convert() {
    convert_job_->cancel();
    is_converted_ = false;
    for (QLabel* answer : {ui_->lbltohijri, ui_->lbltocivil})
        answer->clear();
    if (ui_->tabpages->currentWidget() != ui_->tabconvert || !settings_)
        return;
    is_converted_ = true;
    const DateNumbers civil{number_in(*ui_->txtcivilyear), ui_->cbocivilmonth->currentIndex() + 1.0,
                            number_in(*ui_->cbocivilday)};
    const HijriDate hijri{number_in(*ui_->txthijriyear), ui_->cbohijrimonth->currentIndex() + 1.0,
                          number_in(*ui_->cbohijriday)};
    convert_job_->start([theory = loaded_theory(), settings = *settings_, civil,
                         hijri](Progress&) -> std::optional<Converted> {
        return Converted{day_of_civil(theory, settings, civil), day_of_hijri(theory, settings, hijri)};
    });
}

void frmmonths::show_converted() {
    if (convert_job_->failure() != nullptr) {
        show_failure(convert_job_->failure());
        return;
    }
    const std::shared_ptr<const Converted> converted = convert_job_->result();
    const auto words = [this](const HijriDayAnswer& answer, bool as_hijri) {
        return answer.day ? day_words(*answer.day, as_hijri, language_) : text_of(answer.refused, language_);
    };
    ui_->lbltohijri->setText(words(converted->of_civil, true));
    ui_->lbltocivil->setText(words(converted->of_hijri, false));
}

void frmmonths::show_state(const QString& words) {
    ui_->lblstate->setText(words);
}

void frmmonths::show_buttons() {
    const bool is_of_page = is_month_shown();
    const bool is_file = is_of_page || ui_->tabpages->currentWidget() == ui_->tabyear;
    // The focus of a button that goes must not come to Close.
    if ((!is_file && ui_->cmdsave->hasFocus()) || (!is_of_page && ui_->cmdprint->hasFocus()))
        ui_->tabpages->setFocus();
    ui_->cmdstop->setEnabled(year_job_->is_running() || sheet_job_->is_running());
    ui_->cmdsave->setEnabled(is_file);
    ui_->cmdprint->setEnabled(is_of_page);
}

void frmmonths::cmdstop_click() {
    stop();
    show_state(text_of(stopped_empty_words, language_));
    show_buttons();
}

void frmmonths::done(int result) {
    if (!list_->may_close())
        return;
    stop();
    QDialog::done(result);
}

// --- The kept rule ---

/// By which rule dates outside the panel are told.
void frmmonths::show_used() {
    QString used = text_of(hijri_rules().front().name, language_);
    bool is_kept = true;
    try {
        const std::optional<HijriChoice> kept = kept_hijri_rule();
        is_kept = kept.has_value();
        if (kept) {
            const HijriAnswer answer = settings_of(*kept, number_in(*ui_->txtcivilyear));
            used = answer.settings ? text_of(name_of(*answer.settings), language_)
                                   : text_of(answer.words, language_);
        }
    } catch (const RunTimeFailure& failure) {
        used = words_of(failure, language_);
    }
    ui_->lblused->setText(text_of(used_words, language_).arg(isolated(used)));
    ui_->cmdtabular->setEnabled(is_kept);
}

void frmmonths::cmduse_click() {
    if (!numbers_are_meant(*this, language_))
        return;
    if (pause_->isActive())
        calculate();
    if (!settings_) {
        warn(this, windowTitle(), ui_->lblstate->text(), language_);
        return;
    }
    warning_of_failure(*this, language_, [this] {
        keep_hijri_rule(choices_->shown());
        show_used();
    });
}

void frmmonths::cmdtabular_click() {
    warning_of_failure(*this, language_, [this] {
        forget_hijri_rule();
        show_used();
    });
}

// --- Files and paper ---

/// Whether what is to be written is there; else tells what keeps it.
bool frmmonths::is_ready() {
    if (!numbers_are_meant(*this, language_))
        return false;
    if (pause_->isActive())
        calculate();
    const bool is_there = is_settled() && years_ != nullptr && (!is_month_shown() || sheet_ != nullptr);
    if (!is_there)
        warn(this, windowTitle(), ui_->lblstate->text(), language_);
    return is_there;
}

void frmmonths::cmdsave_click() {
    if (!is_ready())
        return;
    const QPointer<frmmonths> self(this);
    const bool of_month = is_month_shown();
    const std::string proposed = of_month ? file_name_of(*sheet_) + "." + ending_of(HijriFormat::pdf)
                                          : file_name_of(*years_) + "." + ending_of(HijriFormat::csv);
    const QString name = choose_save_file(this, text_of(save_title, language_),
                                          QString::fromStdString(proposed), save_kinds(of_month, language_));
    if (self == nullptr || name.isEmpty() || years_ == nullptr || (of_month && sheet_ == nullptr))
        return;
    warning_of_failure(*this, language_, [this, &name] { save(name); });
}

void frmmonths::save(const QString& name) {
    const bool of_month = is_month_shown();
    const HijriFormat format = format_of_name(name, of_month ? HijriFormat::pdf : HijriFormat::csv);
    const std::int64_t stamp = utc_second_now();
    if (!of_month)
        save_result(name.toStdString(), text_of_years(*years_, format, language_, stamp));
    else if (format == HijriFormat::pdf)
        save_result(name.toStdString(), pdf_of(*sheet_, shown_page()));
    else
        save_result(name.toStdString(), text_of_month(*sheet_, format, language_, stamp));
    show_state(saved_text(name, language_));
}

void frmmonths::cmdprint_click() {
    if (is_ready())
        warning_of_failure(*this, language_, [this] { print(); });
}

void frmmonths::print() {
    const std::shared_ptr<const MonthSheet> printed = sheet_;
    const MonthPage page = shown_page();
    print_document(
        {page.paper, [=] { return painted_pages(printed, page); }, [=] { return pdf_of(*printed, page); }},
        *this, language_);
}

} // namespace halvane
