// SPDX-License-Identifier: MIT
#include "desktop/frmlocation.h"

#include "base/failure.h"
#include "base/numberformat.h"
#include "base/record.h"
#include "desktop/refusedvalue.h"
#include "panel/formpage.h"
#include "panel/messages.h"
#include "panel/numberbox.h"
#include "panel/numberlists.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "panel/placenames.h"
#include "stored/loclist.h"
#include "ui_frmlocation.h"

#include <QKeyEvent>
#include <QSignalBlocker>

namespace halvane {

namespace {

constexpr ControlText twins[] = {
    {"frmlocation", "Location", "الموقع"},
    {"franame", "Name", "الإسم"},
    {"fralongi", "Longitude", "خط الطول"},
    {"opte", "E", "ش"},
    {"optw", "W", "غ"},
    {"fralatitude", "Latitude", "خط العرض"},
    {"optn", "N", "ش"},
    {"opts", "S", "ج"},
    {"fraothers", "Others", "إضافات"},
    {"lblzon", "Time Zone:", "النطاق الزمني"},
    {"lblzond", "(East +)", "(الشرق +)"},
    {"lblele", "Elevation:", "الإرتفاع"},
    {"lblelem", "(m)", "م"},
    {"fraref", "Refraction", "الإنكسار"},
    {"lbltem", "Temperature (c):", "الحرارة م"},
    {"lblpre", "Pressure (mb):", "الضغط مل بار"},
    {"fracity", "City Settings", "مواقيت المدينة"},
    {"lblcity", "For Fajer and Shuroq times consider my location is to the east of my default location by ",
     "لمواعيد الفجر و الشروق، اعتبر موقعي إلى الشرق من الموقع الأصلي بمقدار"},
    {"lblcity2", "Km", "كم"},
    {"lblmod",
     "To change value(s) of a certain location: Firstly, change the value(s) above, then click 'Modify'.",
     "لتغيير قيم إحدى المواقع: قم أولا بتغيير القيمة، ثم اضغط كبسة تعديل"},
    {"lbladd", "To add a new location: Firstly, enter your values above, then click  'Add'.",
     "لإضافة موقع جديد: قم أولا بإدخال القيم أعلاه، ثم اضغط كبسة إضافة"},
    {"cmdok", "&Ok", "&موافق"},
    {"cmdadd", "&Add", "إ&ضافة"},
    {"cmdmod", "&Modify", "&تعديل"},
    {"cmddel", "&Delete", "&حذف"},
    {"cmdcancel", "&Cancel", "&خروج"},
    {"txtname@spoken", "Name", "الإسم"},
    {"txtfind@spoken", "Find in the list", "ابحث في القائمة"},
    {"List1@spoken", "Saved locations", "المواقع المحفوظة"},
    {"txtlongid@spoken", "Longitude, degrees", "خط الطول، الدرجات"},
    {"txtlongim@spoken", "Longitude, minutes", "خط الطول، الدقائق"},
    {"txtlongis@spoken", "Longitude, seconds", "خط الطول، الثواني"},
    {"txtlatid@spoken", "Latitude, degrees", "خط العرض، الدرجات"},
    {"txtlatim@spoken", "Latitude, minutes", "خط العرض، الدقائق"},
    {"txtlatis@spoken", "Latitude, seconds", "خط العرض، الثواني"},
    {"opte@spoken", "East", "شرق"},
    {"optw@spoken", "West", "غرب"},
    {"optn@spoken", "North", "شمال"},
    {"opts@spoken", "South", "جنوب"},
    {"txtcity@spoken", "Kilometres to the east", "المسافة إلى الشرق بالكيلومتر"},
};

constexpr TwinText find_text{"Find in the list", "ابحث في القائمة"};

constexpr TwinText add_title{"Add", "إضافة"};
constexpr TwinText add_question{"Are you sure you want to add this location?",
                                "هل أنت متأكد من إضافة هذا الموقع ؟"};
constexpr TwinText name_title{"Name Error", "خطأ"};
constexpr TwinText name_refused{"You Can Not Have Two Locations of the Same Name!",
                                "لا يمكن إضافة موقعين بنفس الاسم"};
constexpr TwinText modify_title{"Modify", "تعديل"};
constexpr TwinText modify_question{"Are you sure you want to modify this location?",
                                   "هل أنت متأكد من هذا التعديل ؟"};
constexpr TwinText delete_title{"Delete", "حذف"};
constexpr TwinText delete_question{"Are you sure you want to delete this location?",
                                   "هل أنت متأكد من حذف هذا الموقع؟"};
constexpr TwinText delete_again{"Again... You will delete this location!",
                                "مرة أخرى... سيتم حذف هذا الموقع نهائيا"};

/// A number box of the panel, the field it stands for and the widest text it has room for.
struct NumberBox {
    const char* control;
    double Location::*field;
    const char* longest;
};

constexpr NumberBox number_boxes[] = {
    {"txtlongid", &Location::longitude_degrees, "-188"},
    {"txtlongim", &Location::longitude_minutes, "88.88"},
    {"txtlongis", &Location::longitude_seconds, "88.88"},
    {"txtlatid", &Location::latitude_degrees, "-188"},
    {"txtlatim", &Location::latitude_minutes, "88.88"},
    {"txtlatis", &Location::latitude_seconds, "88.88"},
    {"txtele", &Location::elevation, "-8888.8"},
    {"txtzon", &Location::zone, "-8888.8"},
    {"txtcity", &Location::city_offset, "-8888.8"},
    {"txtpre", &Location::pressure, "8888.88"},
    {"txttem", &Location::temperature, "8888.88"},
};

QLineEdit& box_of(const QWidget& form, const NumberBox& box) {
    return *form.findChild<QLineEdit*>(QString::fromLatin1(box.control));
}

} // namespace

frmlocation::frmlocation(QWidget* owner)
    : QDialog(owner), ui_(std::make_unique<Ui::frmlocation>()), language_(stored_language()) {
    ui_->setupUi(this);
    apply_language(*this, twins, language_);
    ui_->txtfind->setPlaceholderText(text_of(find_text, language_));
    set_sizes();
    select_whole_text_on_focus(*this);
    connect_controls();
    load();
    fit_form(*this, Qt::Vertical);
}

frmlocation::~frmlocation() = default;

void frmlocation::load() {
    fill_list(readable_location_list());
    const Location current = readable_loc();
    show_location(current);
    try {
        select_name(current.name);
    } catch (const RunTimeFailure&) {
        return; // the list went away meanwhile: the panel shows the current location
    }
}

void frmlocation::set_sizes() {
    set_spacing(*this);
    for (const NumberBox& box : number_boxes)
        shape_number_box(box_of(*this, box), box.longest);
    ui_->List1->setUniformItemSizes(true);
    fit_width(*ui_->List1, QStringLiteral("San Pedro de Macoris, Dominican"));
}

void frmlocation::connect_controls() {
    connect(ui_->List1, &QListWidget::itemSelectionChanged, this, &frmlocation::List1_click);
    connect(ui_->List1, &QListWidget::itemClicked, this, &frmlocation::List1_click);
    connect(ui_->txtfind, &QLineEdit::textChanged, this, &frmlocation::filter_list);
    ui_->txtfind->installEventFilter(this);
    ui_->List1->installEventFilter(this);
    connect(ui_->cmdadd, &QPushButton::clicked, this, &frmlocation::cmdadd_click);
    connect(ui_->cmdmod, &QPushButton::clicked, this, &frmlocation::cmdmod_click);
    connect(ui_->cmddel, &QPushButton::clicked, this, &frmlocation::cmddel_click);
    connect(ui_->cmdok, &QPushButton::clicked, this, &frmlocation::cmdok_click);
    connect(ui_->cmdcancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmlocation::show_location(const Location& location) {
    ui_->txtname->setText(QString::fromStdString(location.name));
    for (const NumberBox& box : number_boxes)
        box_of(*this, box).setText(QString::fromStdString(plain_number(location.*box.field)));
    (location.east ? ui_->opte : ui_->optw)->setChecked(true);
    (location.north ? ui_->optn : ui_->opts)->setChecked(true);
}

Location frmlocation::shown() const {
    Location location;
    location.name = text_of(*ui_->txtname);
    for (const NumberBox& box : number_boxes)
        location.*box.field = numeric_prefix(text_of(box_of(*this, box)));
    location.east = ui_->opte->isChecked();
    location.west = ui_->optw->isChecked();
    location.north = ui_->optn->isChecked();
    location.south = ui_->opts->isChecked();
    return location;
}

void frmlocation::fill_list(const std::vector<Location>& locations) {
    const QSignalBlocker quiet(ui_->List1);
    ui_->txtfind->clear();
    ui_->List1->clear();
    ui_->List1->addItems(sorted_place_names(locations));
    ui_->List1->setCurrentRow(-1);
}

void frmlocation::select_name(const std::string& name) {
    const QList<QListWidgetItem*> found =
        ui_->List1->findItems(QString::fromStdString(name), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (found.isEmpty())
        return;
    ui_->List1->setCurrentItem(found.front());
    ui_->List1->scrollToItem(found.front(), QAbstractItemView::PositionAtCenter);
}

void frmlocation::select_first() {
    if (ui_->List1->count() > 0)
        ui_->List1->setCurrentRow(0);
}

void frmlocation::filter_list(const QString& part) {
    for (int row = 0; row < ui_->List1->count(); ++row)
        ui_->List1->setRowHidden(row, !ui_->List1->item(row)->text().contains(part, Qt::CaseInsensitive));
}

/// Enter and Down lead from the search box to the first entry that is left; Enter in the list picks the entry
/// that has the focus. In neither does Enter close the panel.
bool frmlocation::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (watched == ui_->txtfind && (enter || key == Qt::Key_Down))
        pick_first_found();
    else if (watched == ui_->List1 && enter)
        pick_focused();
    else
        return QDialog::eventFilter(watched, event);
    return true;
}

void frmlocation::pick_first_found() {
    for (int row = 0; row < ui_->List1->count(); ++row) {
        if (ui_->List1->isRowHidden(row))
            continue;
        ui_->List1->setFocus(Qt::TabFocusReason);
        ui_->List1->setCurrentRow(row);
        return;
    }
}

void frmlocation::pick_focused() {
    QListWidgetItem* const entry = ui_->List1->currentItem();
    if (entry != nullptr && entry->isSelected())
        List1_click();
    else if (entry != nullptr)
        entry->setSelected(true);
}

/// The focus alone makes an entry the current one; only a selected one is picked.
void frmlocation::List1_click() {
    const QList<QListWidgetItem*> picked = ui_->List1->selectedItems();
    if (picked.isEmpty())
        return;
    if (const std::optional<Location> location = find_location(picked.front()->text().toStdString()))
        show_location(*location);
}

bool frmlocation::confirmed(const TwinText& title, const TwinText& question) {
    return ask(this, text_of(title, language_), text_of(question, language_), language_);
}

/// The panel's record; none when a value of it is not meant, or can never be used, which is told.
std::optional<Location> frmlocation::usable() {
    if (!numbers_are_meant(*this, language_))
        return std::nullopt;
    const Location location = shown();
    const auto refused = refused_value(location);
    if (!refused)
        return location;
    for (const NumberBox& box : number_boxes)
        if (box.field == refused->field)
            tell_refused(*this, box_of(*this, box), refused->reason, refused->limit, language_);
    return std::nullopt;
}

void frmlocation::cmdadd_click() {
    const std::optional<Location> location = usable();
    if (!location || !confirmed(add_title, add_question))
        return;
    if (!add_location(*location)) {
        warn(this, text_of(name_title, language_), text_of(name_refused, language_), language_);
        return;
    }
    fill_list(read_location_list());
    select_name(listed_name(location->name));
}

void frmlocation::cmdmod_click() {
    const std::optional<Location> location = usable();
    if (!location || !confirmed(modify_title, modify_question))
        return;
    modify_location(*location);
    fill_list(read_location_list());
    select_name(listed_name(location->name));
}

void frmlocation::cmddel_click() {
    if (!confirmed(delete_title, delete_question) || !confirmed(delete_title, delete_again))
        return;
    delete_location(text_of(*ui_->txtname));
    fill_list(read_location_list());
    select_first();
}

void frmlocation::cmdok_click() {
    const std::optional<Location> location = usable();
    if (!location)
        return;
    write_loc(*location);
    reload_main_panel();
    accept();
}

} // namespace halvane
