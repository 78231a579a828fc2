#include "app/viewer.h"

#include "app/frmstyle.h"
#include "app/messages.h"
#include "app/stored/failure.h"
#include "app/stored/textfile.h"
#include "app/viewerpages.h"

#include <QClipboard>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QVBoxLayout>
#include <algorithm>

namespace halvane {

namespace {

constexpr double kSmallestType = 5; // [pt]
constexpr double kLargestType = 48; // [pt]

constexpr int kFindBox = 16; // characters

constexpr Twin kTwins[] = {
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

constexpr Twin kNotFound{"", "Not found", "غير موجود"};
constexpr Twin kMissing{"", "There is no file of this name yet:", "لا يوجد ملف بهذا الاسم بعد:"};
constexpr Twin kSaveTitle{"", "Save As", "حفظ باسم"};
constexpr Twin kPdfTitle{"", "Save PDF", "حفظ PDF"};
constexpr Twin kErrorTitle{"", "File Error", "خطأ"};

bool is_report(const QString& path) {
    return QFileInfo(path).suffix() == QLatin1String("out");
}

QString content_of(const QString& path, Language language) {
    if (!QFileInfo::exists(path))
        return text_of(kMissing, language) + u'\n' + QFileInfo(path).fileName();
    try {
        return QString::fromStdString(read_text_file(path.toStdString())).remove(u'\r');
    } catch (const RunTimeFailure& failure) {
        return QString::fromUtf8(failure.what());
    }
}

} // namespace

std::span<const Twin> viewer_twins() {
    return kTwins;
}

Viewer::Viewer(const QString& path, QWidget* parent)
    : QWidget(parent), path_(path), text_(new QPlainTextEdit(this)), find_box_(new QLineEdit(this)),
      found_(new QLabel(this)), language_(stored_language()) {
    setObjectName(QStringLiteral("viewer"));
    content_ = content_of(path_, language_);
    text_->setObjectName(QStringLiteral("txtreport"));
    text_->setReadOnly(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    QFont font(fixed_family());
    font.setStyleHint(QFont::Monospace);
    normal_points_ = QFontInfo(this->font()).pointSizeF();
    font.setPointSizeF(normal_points_);
    text_->setFont(font);
    text_->setPlainText(content_);
    keep_left_to_right(*text_);
    set_directions();
    go_to_language();
    build(language_);
    text_->setFocus();
    resize(sizeHint().expandedTo(QSize(text_->fontMetrics().horizontalAdvance(QString(92, u'0')),
                                       text_->fontMetrics().lineSpacing() * 36)));
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
    find_box_->setMinimumWidth(find_box_->fontMetrics().horizontalAdvance(QString(kFindBox, u'n')));
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
    layout->addWidget(text_, 1);
    set_spacing(*this);
    apply_language(*this, kTwins, language);
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
    if (!is_report(path_))
        return;
    QTextCursor cursor(text_->document());
    cursor.select(QTextCursor::Document);
    QTextBlockFormat format;
    format.setLayoutDirection(Qt::LeftToRight);
    cursor.mergeBlockFormat(format);
}

void Viewer::go_to_language() {
    if (is_report(path_) || language_ == Language::english)
        return;
    for (QTextBlock line = text_->document()->begin(); line.isValid(); line = line.next())
        if (line.textDirection() == Qt::RightToLeft) {
            text_->setTextCursor(QTextCursor(line));
            return;
        }
}

void Viewer::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    text_->verticalScrollBar()->setValue(text_->textCursor().block().firstLineNumber());
}

bool Viewer::find(QTextDocument::FindFlags flags) {
    const QString wanted = find_box_->text();
    bool found = !wanted.isEmpty() && text_->find(wanted, flags);
    if (!found && !wanted.isEmpty()) {
        const QTextCursor before = text_->textCursor();
        const bool backward = flags.testFlag(QTextDocument::FindBackward);
        text_->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
        found = text_->find(wanted, flags);
        if (!found)
            text_->setTextCursor(before);
    }
    found_->setText(found || wanted.isEmpty() ? QString() : text_of(kNotFound, language_));
    return found;
}

bool Viewer::find_next() {
    return find({});
}

bool Viewer::find_previous() {
    return find(QTextDocument::FindBackward);
}

void Viewer::resize_text(int steps) {
    QFont font = text_->font();
    font.setPointSizeF(std::clamp(font.pointSizeF() + steps, kSmallestType, kLargestType));
    text_->setFont(font);
}

void Viewer::zoom_in() {
    resize_text(1);
}

void Viewer::zoom_out() {
    resize_text(-1);
}

void Viewer::zoom_normal() {
    QFont font = text_->font();
    font.setPointSizeF(normal_points_);
    text_->setFont(font);
}

void Viewer::copy() {
    if (text_->textCursor().hasSelection())
        text_->copy();
    else
        QGuiApplication::clipboard()->setText(content_);
}

void Viewer::save_as() {
    const QString name =
        choose_save_file(this, text_of(kSaveTitle, language_), QFileInfo(path_).fileName(), QString());
    if (name.isEmpty() || QFileInfo(name) == QFileInfo(path_))
        return;
    QFile source(path_);
    QFile target(name);
    const bool opened = source.open(QIODevice::ReadOnly) && target.open(QIODevice::WriteOnly);
    const QByteArray bytes = opened ? source.readAll() : QByteArray();
    if (!opened || target.write(bytes) != bytes.size() || !target.flush())
        warn(this, text_of(kErrorTitle, language_),
             isolated(name) + QStringLiteral(": ") + target.errorString(), language_);
}

void Viewer::make_pdf() {
    const QString proposed = QFileInfo(path_).completeBaseName() + QStringLiteral(".pdf");
    const QString name =
        choose_save_file(this, text_of(kPdfTitle, language_), proposed, QStringLiteral("PDF (*.pdf)"));
    if (name.isEmpty())
        return;
    QFile target(name);
    if (!target.open(QIODevice::WriteOnly)) {
        warn(this, text_of(kErrorTitle, language_),
             isolated(name) + QStringLiteral(": ") + target.errorString(), language_);
        return;
    }
    QPdfWriter writer(&target);
    writer.setTitle(QFileInfo(path_).fileName());
    writer.setCreator(QStringLiteral("Halvane 5.3.9"));
    print_pages(writer, QFileInfo(path_).fileName(), content_);
}

void Viewer::print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QFileInfo(path_).fileName());
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        print_pages(printer, QFileInfo(path_).fileName(), content_);
}

} // namespace halvane
