// SPDX-License-Identifier: MIT
#include "finemap/frmfinemap.h"

#include "base/failure.h"
#include "calendar/civildate.h"
#include "calendar/modday.h"
#include "crescent/maptexts.h"
#include "finemap/finemapjob.h"
#include "finemap/finemaprules.h"
#include "finemap/mappicturefiles.h"
#include "finemap/mapstyle.h"
#include "panel/besidework.h"
#include "panel/choicelists.h"
#include "panel/formpage.h"
#include "panel/frmwait.h"
#include "panel/messages.h"
#include "panel/namelabel.h"
#include "panel/numberlists.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "panel/placenames.h"
#include "panel/statewords.h"
#include "routines/seriesloader.h"
#include "stored/loclist.h"
#include "stored/outputfile.h"
#include "ui_frmfinemap.h"

#include <QPointer>
#include <QScopedValueRollback>
#include <QScreen>
#include <QTimer>
#include <algorithm>

namespace halvane {

namespace {

constexpr ControlText twins[] = {
    {"frmfinemap", "Fine Map", "الخريطة الدقيقة"},
    {"fracriterion", "Criterion", "المعيار"},
    {"fraday", "Crescent", "الهلال"},
    {"optnew", "&New (evening)", "أ&ول الشهر (مساء)"},
    {"optold", "&Old (morning)", "&آخر الشهر (صباحا)"},
    {"cmdbefore", "Month &before", "الشهر ال&سابق"},
    {"cmdafter", "Month &after", "الشهر ال&تالي"},
    {"fralook", "On the map", "على الخريطة"},
    {"lblstep", "&Grid:", "الش&بكة:"},
    {"lbllines", "Lines of equal", "خطوط متساوية"},
    {"chklag", "&Lag", "الم&كث"},
    {"chkage", "Ag&e", "ال&عمر"},
    {"chkaltitude", "Alt&itude", "الارت&فاع"},
    {"chkelongation", "Elonga&tion", "الاستط&الة"},
    {"chkplace", "M&y place", "موقع&ي"},
    {"cmdmark", "Ma&rk", "عل&م"},
    {"cmdunmark", "&Unmark", "إ&زالة"},
    {"cmdlarger", "+", "+"},
    {"cmdsmaller", "−", "−"},
    {"cmdwhole", "&Whole World", "العا&لم كله"},
    {"cmdmine", "Make It &My Place of Observation", "اجعله موقع &رصدي"},
    {"lblwidth", "Picture wi&dth:", "عرض ال&صورة:"},
    {"cmdstop", "Sto&p", "إي&قاف"},
    {"cmdsave", "&Save As...", "&حفظ باسم..."},
    {"cmdclose", "&Close", "إ&غلاق"},
    {"cbocriterion@spoken", "Criterion", "المعيار"},
    {"cboplace@spoken", "Place of the list to be marked", "موقع من القائمة لتعليمه"},
    {"view@spoken", "Map", "الخريطة"},
    {"txtnumbers@spoken", "Numbers of the chosen place", "أرقام المكان المختار"},
    {"cmdlarger@spoken", "Enlarge", "تكبير"},
    {"cmdsmaller@spoken", "Make smaller", "تصغير"},
    {"view@tip", "Wheel, + and -: enlarge. Drag, arrows: move. Click, Space: numbers of a place",
     "العجلة و + و -: تكبير. السحب و الأسهم: تحريك. النقر و مفتاح المسافة: أرقام المكان"},
    {"cmdmine@tip", "Stores it as the location, at sea level, on the clock of its longitude",
     "يحفظ كموقع، عند مستوى البحر، بتوقيت خط طوله"},
};

constexpr TwinText tab_map{"Map", "الخريطة"};
constexpr TwinText tab_place{"Place", "المكان"};
constexpr TwinText no_place_words{"Click a place of the map, or press Space for the one under the cross.",
                                  "انقر مكانا على الخريطة، أو اضغط مفتاح المسافة للمكان تحت التقاطع."};
constexpr TwinText making_words{"Being made: %1 %", "جار الحساب: %1 %"};
constexpr TwinText stopped_words{"Stopped. What is shown is a sketch.", "أوقف. المعروض رسم تقريبي."};
constexpr TwinText unknown_place{"There is no such place in the list.", "لا يوجد مكان كهذا في القائمة."};
constexpr TwinText end_of_years{"The theories end there.", "هنا تنتهي النظريات."};
constexpr TwinText save_title{"Save the Map", "حفظ الخريطة"};
constexpr TwinText saving_words{"The map is being written", "جار كتابة الخريطة"};
constexpr TwinText not_saved{"Not saved: given up.", "لم يتم الحفظ: ألغي."};
constexpr TwinText mine_title{"Place of Observation", "موقع الرصد"};
constexpr TwinText mine_question{"Shall %1 be your place of observation (UT %2 h, at sea level)?",
                                 "هل تجعل %1 موقع رصدك (فرق التوقيت %2 ساعة، عند مستوى البحر)؟"};

struct KindWords {
    MapFormat format;
    TwinText words;
};
constexpr KindWords kinds[] = {
    {MapFormat::png, {"PNG picture", "صورة PNG"}}, {MapFormat::svg, {"SVG drawing", "رسم SVG"}},
    {MapFormat::pdf, {"PDF page", "صفحة PDF"}},    {MapFormat::geojson, {"GeoJSON zones", "مناطق GeoJSON"}},
    {MapFormat::csv, {"CSV grid", "شبكة CSV"}},
};

constexpr double steps[] = {1, 0.5, 0.25};
constexpr int widths[] = {800, 1600, 3200, 6400, 12800, most_map_width};
constexpr int pause_after_change = 150; // [ms]

QList<SaveKind> save_kinds(Language language) {
    QList<SaveKind> all;
    for (const KindWords& kind : kinds)
        all += save_kind(text_of(kind.words, language), QString::fromLatin1(name_of(kind.format)));
    return all;
}

MapFormat format_of_name(const QString& name) {
    for (const MapFormat format : map_formats)
        if (name.endsWith(u'.' + QLatin1String(name_of(format)), Qt::CaseInsensitive))
            return format;
    return MapFormat::png;
}

std::string bytes_of(const MapDocument& document, const WorldOutline& world, MapFormat format) {
    const MapPage page = document.page(1);
    if (format == MapFormat::geojson)
        return geojson_of(page.maps, document.look.language);
    if (format == MapFormat::csv)
        return csv_of(page.maps);
    std::string bytes;
    draw_maps(document, world, format, [&bytes](std::string_view more) { bytes.append(more); });
    return bytes;
}

} // namespace

std::span<const ControlText> frmfinemap_twins() {
    return twins;
}

frmfinemap::frmfinemap(QWidget* owner)
    : QDialog(owner), ui_(std::make_unique<Ui::frmfinemap>()), language_(stored_language()), limits_(*this),
      job_(new FineMapJob(this)), pause_(new QTimer(this)), world_(std::make_shared<const WorldOutline>()) {
    ui_->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    pause_->setSingleShot(true);
    pause_->setInterval(pause_after_change);
    apply_language(*this, twins, language_);
    ui_->tabpages->setTabText(0, text_of(tab_map, language_));
    ui_->tabpages->setTabText(1, text_of(tab_place, language_));
    ui_->txtnumbers->setPlaceholderText(text_of(no_place_words, language_));
    fill_lists();
    set_sizes();
    select_whole_text_on_focus(*this);
    connect_controls();
    connect_view();
    fit_form(*this, Qt::Horizontal | Qt::Vertical);
    constexpr double of_the_screen = 0.9;
    resize((screen()->availableSize() * of_the_screen).expandedTo(size()));
    try {
        world_ = std::make_shared<const WorldOutline>(read_world_outline());
    } catch (const RunTimeFailure& failure) {
        show_state(words_of(failure, language_));
    }
}

frmfinemap::~frmfinemap() = default;

void frmfinemap::choose(CrescentKind kind, double conjunction, int day, const std::string& criterion) {
    {
        const QScopedValueRollback quiet(showing_, true);
        conjunction_ = conjunction;
        (kind == CrescentKind::new_crescent ? ui_->optnew : ui_->optold)->setChecked(true);
        QRadioButton* const days[] = {ui_->opt0, ui_->opt1, ui_->opt2};
        days[std::clamp(day, 0, 2)]->setChecked(true);
        fill_criteria();
        const int entry = ui_->cbocriterion->findData(QString::fromStdString(criterion));
        if (entry >= 0)
            ui_->cbocriterion->setCurrentIndex(entry);
        show_dates();
        show_limits();
    }
    calculate();
}

// --- Lists and sizes ---

void frmfinemap::fill_lists() {
    fill_criteria();
    for (const double step : steps)
        ui_->cbostep->addItem(QString::number(step) + u'°', step);
    ui_->cbostep->setCurrentIndex(1);
    for (const int width : widths)
        ui_->cbowidth->addItem(QString::number(width), width);
    ui_->cbowidth->setCurrentIndex(1);
    ui_->cboplace->addItems(sorted_place_names(readable_location_list()));
    ui_->cboplace->setCurrentIndex(-1);
    filter_while_typing(*ui_->cboplace);
    limits_.show(CriteriaSettings());
    show_limits();
}

/// The criteria that judge the chosen kind; the chosen one stays chosen.
void frmfinemap::fill_criteria() {
    const QScopedValueRollback quiet(showing_, true);
    const QVariant chosen = ui_->cbocriterion->currentData();
    ui_->cbocriterion->clear();
    for (const CataloguedCriterion* criterion : mapped_criteria(kind()))
        ui_->cbocriterion->addItem(text_of(criterion->name, language_), QString::fromLatin1(criterion->key));
    choose_data(*ui_->cbocriterion, chosen);
}

void frmfinemap::set_sizes() {
    constexpr int numbers_lines = 6;
    set_spacing(*this);
    limits_.shape(language_);
    for (QComboBox* list : {ui_->cbocriterion, ui_->cboplace})
        limit_width(*list);
    const int line = fontMetrics().lineSpacing();
    constexpr int place_lines = 3;
    ui_->lblplace->setMinimumHeight(place_lines * line);
    for (QPushButton* button : {ui_->cmdlarger, ui_->cmdsmaller})
        button->setFixedWidth(place_lines * line);
    ui_->txtnumbers->setMinimumHeight(numbers_lines * line);
    shape_choices(*ui_->areachoices, numbers_lines);
    ui_->tabmapcolumn->setContentsMargins({});
}

// --- Controls ---

void frmfinemap::connect_controls() {
    connect(pause_, &QTimer::timeout, this, &frmfinemap::calculate);
    connect(job_, &BesideJob::advanced, this,
            [this](int percent) { show_state(text_of(making_words, language_).arg(percent)); });
    connect(job_, &FineMapJob::sketched, this, &frmfinemap::show_sketch);
    connect(job_, &BesideJob::ended, this, &frmfinemap::show_result);
    connect(ui_->cbocriterion, &QComboBox::currentIndexChanged, this, [this] {
        show_limits();
        change();
    });
    connect(ui_->optnew, &QRadioButton::toggled, this, &frmfinemap::change_kind);
    for (QRadioButton* day : {ui_->opt0, ui_->opt1, ui_->opt2})
        connect(day, &QRadioButton::toggled, this, &frmfinemap::change);
    connect(ui_->cbostep, &QComboBox::currentIndexChanged, this, &frmfinemap::change);
    for (QLineEdit* box : limits_.boxes())
        connect(box, &QLineEdit::textChanged, this, &frmfinemap::change);
    for (QCheckBox* box : {ui_->chklag, ui_->chkage, ui_->chkaltitude, ui_->chkelongation, ui_->chkplace})
        connect(box, &QCheckBox::toggled, this, &frmfinemap::show_look);
    connect(ui_->cmdbefore, &QPushButton::clicked, this, [this] { move_month(-1); });
    connect(ui_->cmdafter, &QPushButton::clicked, this, [this] { move_month(1); });
    connect(ui_->cmdmark, &QPushButton::clicked, this, &frmfinemap::mark_place);
    connect(ui_->cmdunmark, &QPushButton::clicked, this, &frmfinemap::unmark_places);
    connect(ui_->cmdmine, &QPushButton::clicked, this, &frmfinemap::cmdmine_click);
    connect(ui_->cmdstop, &QPushButton::clicked, this, &frmfinemap::cmdstop_click);
    connect(ui_->cmdsave, &QPushButton::clicked, this, &frmfinemap::cmdsave_click);
    connect(ui_->cmdclose, &QPushButton::clicked, this, &QDialog::reject);
    keep_focus_in_sight(*ui_->areachoices);
}

void frmfinemap::connect_view() {
    constexpr double factor = 1.5;
    const auto middle = [this] { return QRectF(ui_->view->rect()).center(); };
    connect(ui_->view, &FineMapView::pointed, this, &frmfinemap::point_at);
    connect(ui_->view, &FineMapView::picked, this, &frmfinemap::pick);
    connect(ui_->cmdlarger, &QPushButton::clicked, this,
            [this, middle] { ui_->view->enlarge(factor, middle()); });
    connect(ui_->cmdsmaller, &QPushButton::clicked, this,
            [this, middle] { ui_->view->enlarge(1 / factor, middle()); });
    connect(ui_->cmdwhole, &QPushButton::clicked, ui_->view, &FineMapView::show_whole);
}

CrescentKind frmfinemap::kind() const {
    return ui_->optnew->isChecked() ? CrescentKind::new_crescent : CrescentKind::old_crescent;
}

/// The conjunction and the three days that its crescent is looked for on.
void frmfinemap::show_dates() {
    FineMapSettings settings;
    settings.kind = kind();
    settings.conjunction = conjunction_;
    settings.criterion = catalogued_criterion(shown_criterion());
    const SheetTexts texts =
        sheet_texts(settings, clock_of(read_pref(), read_loc(), conjunction_), language_);
    ui_->lblconjunction->setText(QString::fromStdString(texts.month + "\n" + texts.conjunction));
    QRadioButton* const buttons[] = {ui_->opt0, ui_->opt1, ui_->opt2};
    const std::vector<double> days = days_of_crescent(conjunction_, kind());
    for (std::size_t i = 0; i < days.size(); ++i)
        buttons[i]->setText(QString::fromStdString(weekday_name(days[i] + 0.5, language_) +
                                                   (language_ == Language::english ? ", " : "، ") +
                                                   map_date_text(days[i], language_)));
}

/// The limits that the chosen criterion has.
void frmfinemap::show_limits() {
    limits_.show_those_of(shown_criterion());
}

std::string frmfinemap::shown_criterion() const {
    return ui_->cbocriterion->currentData().toString().toStdString();
}

/// What is chosen is made after a short pause, in which more may change.
void frmfinemap::change() {
    if (showing_)
        return;
    map_.reset();
    pause_->start();
}

void frmfinemap::change_kind() {
    if (showing_)
        return;
    fill_criteria();
    show_limits();
    show_dates();
    change();
}

void frmfinemap::move_month(int months) {
    Ephemeris ephemeris(loaded_theory());
    const auto other = conjunction_after(ephemeris, conjunction_, months);
    if (!other) {
        show_state(text_of(end_of_years, language_));
        return;
    }
    conjunction_ = *other;
    show_dates();
    change();
}

std::optional<FineMapSettings> frmfinemap::shown_settings() {
    FineMapSettings settings;
    settings.kind = kind();
    settings.conjunction = conjunction_;
    const std::vector<double> days = days_of_crescent(conjunction_, settings.kind);
    settings.day = days[ui_->opt2->isChecked() ? 2 : ui_->opt1->isChecked() ? 1 : 0];
    settings.criterion = catalogued_criterion(shown_criterion());
    settings.step = ui_->cbostep->currentData().toDouble();
    const std::optional<TwinText> wrong = limits_.take(shown_criterion(), settings.limits);
    show_words(*ui_->lbllimitwrong, wrong ? text_of(*wrong, language_) : QString());
    return wrong ? std::nullopt : std::optional(settings);
}

MapLook frmfinemap::shown_look() const {
    MapLook look;
    look.language = language_;
    for (const auto& [box, quantity] : {std::pair{ui_->chklag, MapQuantity::lag},
                                        {ui_->chkage, MapQuantity::age},
                                        {ui_->chkaltitude, MapQuantity::altitude},
                                        {ui_->chkelongation, MapQuantity::elongation}})
        if (box->isChecked())
            look.lines.push_back(quantity);
    if (ui_->chkplace->isChecked())
        look.places.push_back(marked_place(read_loc(), true));
    for (const Location& mark : marks_)
        look.places.push_back(marked_place(mark, false));
    return look;
}

// --- The map ---

bool frmfinemap::is_settled() const {
    return !pause_->isActive() && !job_->is_running();
}

void frmfinemap::calculate() {
    pause_->stop();
    job_->cancel();
    map_.reset();
    is_of_choices_ = false;
    const std::optional<FineMapSettings> wanted = shown_settings();
    ui_->cmdstop->setEnabled(wanted.has_value());
    if (!wanted) {
        show_nothing();
        show_state(ui_->lbllimitwrong->text());
        return;
    }
    show_state(text_of(making_words, language_).arg(0));
    job_->start(loaded_theory(), *wanted);
}

/// A map of other choices does not stay where none of the new ones comes.
void frmfinemap::show_nothing() {
    shown_.reset();
    ui_->view->show_map(nullptr);
    ui_->legend->show_legend(nullptr);
    ui_->lblplace->clear();
}

void frmfinemap::show_sketch(const std::shared_ptr<const FineMap>& sketch) {
    shown_ = sketch;
    is_of_choices_ = true;
    show_look();
}

void frmfinemap::show_result() {
    ui_->cmdstop->setEnabled(false);
    if (job_->failure() != nullptr) {
        show_nothing();
        try {
            std::rethrow_exception(job_->failure());
        } catch (const RunTimeFailure& failure) {
            show_state(words_of(failure, language_));
        }
        return;
    }
    map_ = job_->map();
    shown_ = map_;
    is_of_choices_ = true;
    show_look();
    show_state(QString::fromStdString(evening_text(map_->settings, language_)));
    if (picked_)
        pick(*picked_);
}

/// Paints what is there with the lines and places that are chosen.
void frmfinemap::show_look() {
    if (shown_ == nullptr)
        return;
    const auto shown = std::make_shared<const ShownMap>(shown_, world_, shown_look());
    ui_->view->show_map(shown);
    ui_->legend->show_legend(shown);
}

void frmfinemap::show_state(const QString& words) {
    ui_->lblstate->setText(words);
    ui_->lblstate->setToolTip(plain_tip(words));
}

void frmfinemap::cmdstop_click() {
    pause_->stop();
    job_->cancel();
    ui_->cmdstop->setEnabled(false);
    if (!is_of_choices_)
        show_nothing();
    show_state(text_of(is_of_choices_ ? stopped_words : stopped_empty_words, language_));
}

void frmfinemap::done(int result) {
    pause_->stop();
    job_->cancel();
    QDialog::done(result);
}

// --- Places ---

/// Words whose figures stand in order in the window's direction.
QString frmfinemap::in_order(const QString& words) const {
    return language_ == Language::english ? words : with_figures_in_order(words);
}

void frmfinemap::point_at(const std::optional<MapPosition>& place) {
    if (!place || shown_ == nullptr) {
        ui_->lblplace->clear();
        return;
    }
    Ephemeris ephemeris(loaded_theory());
    const FineMapSettings& settings = shown_->settings;
    const QString words = text_of(answer_words(settings, answer_at(ephemeris, settings, *place)), language_);
    ui_->lblplace->setText(isolated(QString::fromStdString(place_text(*place))) + u'\n' + in_order(words));
    ui_->view->setAccessibleDescription(ui_->lblplace->text());
}

void frmfinemap::pick(const MapPosition& place) {
    if (shown_ == nullptr)
        return;
    picked_ = place;
    Ephemeris ephemeris(loaded_theory());
    ui_->txtnumbers->setPlainText(
        in_order(text_of(numbers_of_place(ephemeris, shown_->settings, place), language_)));
    ui_->tabpages->setCurrentIndex(1);
    ui_->cmdmine->setEnabled(true);
    ui_->view->mark_picked(place);
}

// The panel may be closed and deleted while the question stands.
void frmfinemap::cmdmine_click() {
    if (!picked_)
        return;
    const QPointer<frmfinemap> self(this);
    const Location location = location_at(*picked_, read_loc());
    const QString question = text_of(mine_question, language_)
                                 .arg(isolated(QString::fromStdString(location.name)))
                                 .arg(isolated(QString::number(location.zone)));
    if (!ask(this, text_of(mine_title, language_), question, language_) || self == nullptr)
        return;
    emit place_wanted(location);
    if (self == nullptr)
        return;
    show_dates();
    show_look();
}

void frmfinemap::mark_place() {
    const std::optional<Location> location = find_location(text_of(*ui_->cboplace));
    if (!location) {
        show_state(text_of(unknown_place, language_));
        return;
    }
    if (std::find(marks_.begin(), marks_.end(), *location) == marks_.end())
        marks_.push_back(*location);
    show_marks();
}

void frmfinemap::unmark_places() {
    marks_.clear();
    show_marks();
}

void frmfinemap::show_marks() {
    QStringList names;
    for (const Location& mark : marks_)
        names << isolated(QString::fromStdString(mark.name));
    show_words(*ui_->lblmarks,
               names.join(language_ == Language::english ? QStringLiteral(", ") : QStringLiteral("، ")));
    show_look();
}

// --- Files ---

bool frmfinemap::is_up_to_date() const {
    return map_ != nullptr && is_settled();
}

// The panel may be closed and deleted while a dialog stands or the map is made.
void frmfinemap::cmdsave_click() {
    if (!is_up_to_date()) {
        warn(this, windowTitle(), ui_->lblstate->text(), language_);
        return;
    }
    const QPointer<frmfinemap> self(this);
    const QString proposed = QString::fromStdString(
        hijri_month_of(days_of_crescent(conjunction_, kind()).front(), kind(), Language::english) + "." +
        name_of(MapFormat::png));
    const QString name =
        choose_save_file(this, text_of(save_title, language_), proposed, save_kinds(language_));
    if (self == nullptr || name.isEmpty() || map_ == nullptr)
        return;
    warning_of_failure(*this, language_, [this, &name] { save(name); });
}

void frmfinemap::save(const QString& name) {
    MapDocument document;
    const std::optional<SheetClock> clock = clock_of(read_pref(), read_loc(), conjunction_);
    document.page = [map = map_, clock](int) { return MapPage{{*map}, clock}; };
    document.look = shown_look();
    document.title = document_title(sheet_texts(map_->settings, clock, language_));
    document.width = ui_->cbowidth->currentData().toInt();
    const MapFormat format = format_of_name(name);
    const QPointer<frmfinemap> self(this);
    std::optional<std::string> bytes;
    {
        WaitProgress progress(text_of(saving_words, language_), this);
        bytes = made_beside([document, world = world_, format] { return bytes_of(document, *world, format); },
                            progress);
    }
    if (bytes)
        save_result(name.toStdString(), *bytes);
    if (self != nullptr)
        show_state(bytes ? saved_text(name, language_) : text_of(not_saved, language_));
}

} // namespace halvane
