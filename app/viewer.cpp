#include "app/viewer.h"

#include "app/frmstyle.h"
#include "app/messages.h"
#include "app/stored/failure.h"
#include "app/stored/textfile.h"
#include "app/version.h"
#include "app/viewerpages.h"

#include <QClipboard>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPdfWriter>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QShortcut>
#include <QTextBlock>
#include <QTextEdit>
#include <QVBoxLayout>
#include <algorithm>

namespace halvane {

namespace {

constexpr double smallest_type = 5; // [pt]
constexpr double largest_type = 48; // [pt]

constexpr int columns = 92;
constexpr int lines = 36;
constexpr int find_box = 16; // characters

constexpr Twin twins[] = {
    {"lblfind", "&Find:", "&بحث:"},
    {"cmdnext", "&Next", "ال&تالي"},
    {"cmdprevious", "Pre&vious", "ال&سابق"},
    {"cmdlarger", "&+", "&+"},
    {"cmdsmaller", "&-", "&-"},
    {"cmdnormal", "&100%", "&100%"},
    {"cmdlarger@spoken", "Larger type", "خط أكبر"},
    {"cmdsmaller@spoken", "Smaller type", "خط أصغر"},
    {"cmdlarger@tip", "Larger type", "خط أكبر"},
    {"cmdsmaller@tip", "Smaller type", "خط أصغر"},
    {"cmdcopy", "&Copy", "&نسخ"},
    {"cmdsave", "&Save As...", "&حفظ باسم..."},
    {"cmdprint", "&Print...", "&طباعة..."},
    {"cmdpdf", "P&DF", "P&DF"},
    {"cmdclose", "Cl&ose", "&إغلاق"},
    {"txtreport@spoken", "Text of the file", "نص الملف"},
};

constexpr Twin not_found{"", "Not found", "غير موجود"};
constexpr Twin missing{"", "There is no file of this name yet:", "لا يوجد ملف بهذا الاسم بعد:"};
constexpr Twin save_title{"", "Save As", "حفظ باسم"};
constexpr Twin pdf_title{"", "Save PDF", "حفظ PDF"};
constexpr Twin error_title{"", "File Error", "خطأ"};

bool is_report(const QString& path) {
    return QFileInfo(path).suffix() == QLatin1String("out");
}

QString content_of(const QString& path, Language language) {
    if (!QFileInfo::exists(path))
        return text_of(missing, language) + u'\n' + QFileInfo(path).fileName();
    try {
        return QString::fromStdString(read_text_file(path.toStdString())).remove(u'\r');
    } catch (const RunTimeFailure& failure) {
        return QString::fromUtf8(failure.what());
    }
}

/// Reports may have a hundred thousand rows, which only the plain area takes at once; the other one can set
/// lines to either side.
QAbstractScrollArea* make_area(bool report, QWidget* parent) {
    constexpr Qt::TextInteractionFlags flags = Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard;
    if (report) {
        auto* area = new QPlainTextEdit(parent);
        area->setReadOnly(true);
        area->setTextInteractionFlags(flags);
        area->setLineWrapMode(QPlainTextEdit::NoWrap);
        return area;
    }
    auto* area = new QTextEdit(parent);
    area->setReadOnly(true);
    area->setTextInteractionFlags(flags);
    area->setWordWrapMode(QTextOption::NoWrap);
    area->setAcceptRichText(false);
    return area;
}

/// The two areas have the same routines but no common class for them.
template <class Action>
decltype(auto) with_area(QAbstractScrollArea& area, Action action) {
    if (auto* plain = qobject_cast<QPlainTextEdit*>(&area))
        return action(*plain);
    return action(*qobject_cast<QTextEdit*>(&area));
}

} // namespace

std::span<const Twin> viewer_twins() {
    return twins;
}

Viewer::Viewer(const QString& path, QWidget* parent)
    : QWidget(parent), path_(path), area_(make_area(is_report(path), this)), find_box_(new QLineEdit(this)),
      found_(new QLabel(this)), language_(stored_language()) {
    setObjectName(QStringLiteral("viewer"));
    content_ = content_of(path_, language_);
    area_->setObjectName(QStringLiteral("txtreport"));
    QFont font(fixed_family());
    font.setStyleHint(QFont::Monospace);
    normal_points_ = QFontInfo(this->font()).pointSizeF();
    font.setPointSizeF(normal_points_);
    area_->setFont(font);
    with_area(*area_, [this](auto& area) { area.setPlainText(content_); });
    keep_left_to_right(*area_);
    set_directions();
    go_to_language();
    build(language_);
    area_->setFocus();
    const QFontMetrics metrics = area_->fontMetrics();
    resize(sizeHint().expandedTo(
        QSize(metrics.horizontalAdvance(QString(columns, u'0')), metrics.lineSpacing() * lines)));
}

QTextDocument& Viewer::document() const {
    return with_area(*area_, [](auto& area) -> QTextDocument& { return *area.document(); });
}

QTextCursor Viewer::cursor() const {
    return with_area(*area_, [](auto& area) { return area.textCursor(); });
}

QWidget& Viewer::area() const {
    return *area_;
}

void Viewer::set_cursor(const QTextCursor& cursor) {
    with_area(*area_, [&cursor](auto& area) { area.setTextCursor(cursor); });
}

QPushButton* Viewer::add_button(const char* name, void (Viewer::*action)()) {
    auto* button = new QPushButton(this);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, action);
    return button;
}

QPushButton* Viewer::add_small_button(const char* name, void (Viewer::*action)()) {
    QPushButton* button = add_button(name, action);
    button->setFixedWidth(button->fontMetrics().horizontalAdvance(QStringLiteral("100%")) +
                          2 * space_unit(*this));
    return button;
}

void Viewer::build(Language language) {
    auto* label = new QLabel(this);
    label->setObjectName(QStringLiteral("lblfind"));
    label->setBuddy(find_box_);
    find_box_->setObjectName(QStringLiteral("txtfind"));
    found_->setObjectName(QStringLiteral("lblfound"));
    connect(find_box_, &QLineEdit::returnPressed, this, &Viewer::find_next);
    connect(find_box_, &QLineEdit::textEdited, found_, &QLabel::clear);

    auto* bar = new QHBoxLayout;
    bar->addWidget(label);
    find_box_->setMinimumWidth(find_box_->fontMetrics().horizontalAdvance(QString(find_box, u'n')));
    bar->addWidget(find_box_, 1);
    auto* next = new QPushButton(this);
    next->setObjectName(QStringLiteral("cmdnext"));
    connect(next, &QPushButton::clicked, this, &Viewer::find_next);
    bar->addWidget(next);
    auto* previous = new QPushButton(this);
    previous->setObjectName(QStringLiteral("cmdprevious"));
    connect(previous, &QPushButton::clicked, this, &Viewer::find_previous);
    bar->addWidget(previous);
    bar->addWidget(found_, 1);
    bar->addWidget(add_small_button("cmdsmaller", &Viewer::zoom_out));
    bar->addWidget(add_small_button("cmdnormal", &Viewer::zoom_normal));
    bar->addWidget(add_small_button("cmdlarger", &Viewer::zoom_in));
    bar->addWidget(add_button("cmdcopy", &Viewer::copy));
    bar->addWidget(add_button("cmdsave", &Viewer::save_as));
    bar->addWidget(add_button("cmdpdf", &Viewer::make_pdf));
    bar->addWidget(add_button("cmdprint", &Viewer::print));
    auto* close_button = new QPushButton(this);
    close_button->setObjectName(QStringLiteral("cmdclose"));
    connect(close_button, &QPushButton::clicked, this, &QWidget::close);
    bar->addWidget(close_button);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(bar);
    layout->addWidget(area_, 1);
    set_spacing(*this);
    apply_language(*this, twins, language);
    setWindowTitle(QFileInfo(path_).fileName());
    add_shortcuts();
}

void Viewer::add_shortcuts() {
    const auto add = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    add(QKeySequence::Find, [this] {
        find_box_->setFocus(Qt::ShortcutFocusReason);
        find_box_->selectAll();
    });
    add(QKeySequence::FindNext, [this] { find_next(); });
    add(QKeySequence::FindPrevious, [this] { find_previous(); });
    add(QKeySequence::ZoomIn, [this] { zoom_in(); });
    add(QKeySequence(Qt::CTRL | Qt::Key_Equal), [this] { zoom_in(); });
    add(QKeySequence::ZoomOut, [this] { zoom_out(); });
    add(QKeySequence(Qt::CTRL | Qt::Key_0), [this] { zoom_normal(); });
    add(QKeySequence(Qt::CTRL | Qt::Key_S), [this] { save_as(); });
    add(QKeySequence::Print, [this] { print(); });
}

void Viewer::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void Viewer::set_directions() {
    Qt::LayoutDirection direction = Qt::LeftToRight;
    QTextCursor line(&document());
    line.beginEditBlock();
    if (is_report(path_))
        line.select(QTextCursor::Document);
    do {
        if (!is_report(path_))
            direction = direction_of(line.block().text(), direction);
        QTextBlockFormat format;
        format.setLayoutDirection(direction);
        line.mergeBlockFormat(format);
    } while (!is_report(path_) && line.movePosition(QTextCursor::NextBlock));
    line.endEditBlock();
}

void Viewer::go_to_language() {
    if (is_report(path_) || language_ == Language::english)
        return;
    // A heading is a line that the next one underlines.
    for (QTextBlock line = document().begin(); line.next().isValid(); line = line.next())
        if (line.textDirection() == Qt::RightToLeft && line.next().text().startsWith(u'=')) {
            set_cursor(QTextCursor(line));
            return;
        }
}

void Viewer::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    with_area(*area_, [](auto& area) {
        if (area.textCursor().atStart())
            return;
        const QTextCursor wanted = area.textCursor();
        area.moveCursor(QTextCursor::End);
        area.setTextCursor(wanted);
        area.ensureCursorVisible();
    });
}

bool Viewer::find(QTextDocument::FindFlags flags) {
    const QString wanted = find_box_->text();
    if (wanted.isEmpty())
        return false;
    QTextCursor place = document().find(wanted, cursor(), flags);
    if (place.isNull()) {
        QTextCursor edge(&document());
        if (flags.testFlag(QTextDocument::FindBackward))
            edge.movePosition(QTextCursor::End);
        place = document().find(wanted, edge, flags);
    }
    if (!place.isNull())
        set_cursor(place);
    found_->setText(place.isNull() ? text_of(not_found, language_) : QString());
    return !place.isNull();
}

bool Viewer::find_next() {
    return find({});
}

bool Viewer::find_previous() {
    return find(QTextDocument::FindBackward);
}

void Viewer::set_type(double points) {
    QFont font = area_->font();
    font.setPointSizeF(std::clamp(points, smallest_type, largest_type));
    area_->setFont(font);
}

void Viewer::zoom_in() {
    set_type(area_->font().pointSizeF() + 1);
}

void Viewer::zoom_out() {
    set_type(area_->font().pointSizeF() - 1);
}

void Viewer::zoom_normal() {
    set_type(normal_points_);
}

void Viewer::copy() {
    if (cursor().hasSelection())
        with_area(*area_, [](auto& area) { area.copy(); });
    else
        QGuiApplication::clipboard()->setText(content_);
}

void Viewer::save_as() {
    const QString name =
        choose_save_file(this, text_of(save_title, language_), QFileInfo(path_).fileName(), QString());
    if (name.isEmpty() || QFileInfo(name) == QFileInfo(path_))
        return;
    QFile source(path_);
    QFile target(name);
    const bool opened = source.open(QIODevice::ReadOnly) && target.open(QIODevice::WriteOnly);
    const QByteArray bytes = opened ? source.readAll() : QByteArray();
    if (!opened || target.write(bytes) != bytes.size() || !target.flush())
        warn(this, text_of(error_title, language_),
             isolated(name) + QStringLiteral(": ") + target.errorString(), language_);
}

void Viewer::make_pdf() {
    const QString proposed = QFileInfo(path_).completeBaseName() + QStringLiteral(".pdf");
    const QString name =
        choose_save_file(this, text_of(pdf_title, language_), proposed, QStringLiteral("PDF (*.pdf)"));
    if (name.isEmpty())
        return;
    QFile target(name);
    if (!target.open(QIODevice::WriteOnly)) {
        warn(this, text_of(error_title, language_),
             isolated(name) + QStringLiteral(": ") + target.errorString(), language_);
        return;
    }
    QPdfWriter writer(&target);
    writer.setTitle(QFileInfo(path_).fileName());
    writer.setCreator(QString::fromLatin1(program_title));
    print_pages(writer, QFileInfo(path_).fileName(), content_, !is_report(path_));
}

void Viewer::print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QFileInfo(path_).fileName());
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        print_pages(printer, QFileInfo(path_).fileName(), content_, !is_report(path_));
}

} // namespace halvane
