// SPDX-License-Identifier: MIT
#include "panel/viewer.h"
#include "panel/printerchoice.h"

#include "base/failure.h"
#include "base/version.h"
#include "panel/besidefile.h"
#include "panel/frmwait.h"
#include "panel/messages.h"
#include "panel/panelstyle.h"
#include "panel/textview.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPdfWriter>
#include <QPointer>
#include <QPrinter>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTextEdit>
#include <QTextOption>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

namespace halvane {

namespace {

constexpr double smallest_type = 5; // [pt]
constexpr double largest_type = 48; // [pt]

constexpr int columns = 92;
constexpr int lines = 36;
constexpr int find_box = 16;                   // characters
constexpr int find_slice = 20;                 // of the time of the window's other work [ms]
constexpr int long_print = 20000;              // lines
constexpr std::int64_t longest_guide = 100000; // lines

constexpr ControlText twins[] = {
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

constexpr TwinText answer_name{"Short answer", "الجواب المختصر"};
constexpr TwinText not_found{"Not found", "غير موجود"};
constexpr TwinText finding{"Searching: %1 %", "جار البحث: %1 %"};
constexpr TwinText guide{"User's Guide", "دليل المستخدم"};
constexpr TwinText missing{"There is no file of this name yet:", "لا يوجد ملف بهذا الاسم بعد:"};
constexpr TwinText save_title{"Save As", "حفظ باسم"};
constexpr TwinText text_kind{"Text", "نص"};
constexpr TwinText pdf_title{"Save PDF", "حفظ PDF"};

bool is_report(const QString& path) {
    return QFileInfo(path).suffix() == QLatin1String("out");
}

std::shared_ptr<const KeptText> text_at(const QString& path, Language language, bool& is_file) {
    is_file = false;
    if (!QFileInfo::exists(path))
        return KeptText::of_words(text_of(missing, language) + u'\n' + QFileInfo(path).fileName());
    try {
        auto text = KeptText::of_file(path.toStdString());
        is_file = true;
        return text;
    } catch (const RunTimeFailure& failure) {
        return KeptText::of_words(words_of(failure, language));
    }
}

/// The kinds that a report of a run can be saved as; any name for another text.
QList<SaveKind> save_kinds(const QString& name, bool has_run, Language language) {
    if (!has_run)
        return {};
    QList<SaveKind> kinds;
    for (const ReportFormat format : report_formats()) {
        const bool is_text = format == ReportFormat::text;
        const QString ending = is_text ? QFileInfo(name).suffix() : QString::fromLatin1(name_of(format));
        const QString words = is_text ? text_of(text_kind, language) : ending.toUpper();
        kinds += save_kind(words, ending);
    }
    return kinds;
}

/// Prints what `printed` says with the progress window where that takes long; false when the user gives up.
bool print_with_progress(QPagedPaintDevice& device, const PrintedText& printed, const PageRange& range,
                         QWidget* panel) {
    if (printed.text->lines() < long_print)
        return print_pages(device, printed, range) > 0;
    WaitProgress progress(printed.title, panel);
    return print_pages(device, printed, range, &progress) > 0;
}

} // namespace

std::span<const ControlText> viewer_twins() {
    return twins;
}

Viewer::Viewer(const QString& path, RunPointer run, QWidget* parent)
    : QWidget(parent), path_(path), run_(std::move(run)), language_(stored_language()),
      text_(text_at(path, language_, is_file_)), head_(report_head(*text_)),
      view_(new TextView(text_, is_report(path) ? TextView::Kind::table : TextView::Kind::prose, language_,
                         this)),
      find_box_(new QLineEdit(this)), found_(new QLabel(this)), find_timer_(new QTimer(this)) {
    setObjectName(QStringLiteral("viewer"));
    view_->setObjectName(QStringLiteral("txtreport"));
    normal_points_ = QFontInfo(font()).pointSizeF();
    QFont type = is_report(path) ? QFont(fixed_family()) : font();
    if (is_report(path))
        type.setStyleHint(QFont::Monospace);
    type.setPointSizeF(normal_points_);
    view_->setFont(type);
    keep_left_to_right(*view_);
    build();
    go_to_language();
    view_->setFocus();
    const QFontMetrics metrics = view_->fontMetrics();
    resize(sizeHint().expandedTo(
        QSize(metrics.horizontalAdvance(QString(columns, u'0')), metrics.lineSpacing() * lines)));
}

/// Report, place and period; a text that is no report has its file's name, but for the guide.
QString Viewer::title() const {
    QString name = QFileInfo(path_).fileName();
    QString report = title_of(head_, language_);
    if (!report.isEmpty())
        return report;
    return name == QLatin1String("help.txt") ? text_of(guide, language_) : name;
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

QLayout* Viewer::make_find_bar() {
    auto* label = new QLabel(this);
    label->setObjectName(QStringLiteral("lblfind"));
    label->setBuddy(find_box_);
    find_box_->setObjectName(QStringLiteral("txtfind"));
    find_box_->setMinimumWidth(find_box_->fontMetrics().horizontalAdvance(QString(find_box, u'n')));
    found_->setObjectName(QStringLiteral("lblfound"));
    connect(find_box_, &QLineEdit::returnPressed, this, &Viewer::find_next);
    connect(find_box_, &QLineEdit::textEdited, this, &Viewer::stop_finding);
    find_timer_->setInterval(0);
    connect(find_timer_, &QTimer::timeout, this, &Viewer::go_on_finding);

    auto* bar = new QHBoxLayout;
    bar->addWidget(label);
    bar->addWidget(find_box_, 1);
    bar->addWidget(add_button("cmdnext", &Viewer::find_next));
    bar->addWidget(add_button("cmdprevious", &Viewer::find_previous));
    bar->addWidget(found_, 1);
    bar->addWidget(add_small_button("cmdsmaller", &Viewer::zoom_out));
    bar->addWidget(add_small_button("cmdnormal", &Viewer::zoom_normal));
    bar->addWidget(add_small_button("cmdlarger", &Viewer::zoom_in));
    return bar;
}

QLayout* Viewer::make_action_bar() {
    auto* bar = new QHBoxLayout;
    bar->addWidget(add_button("cmdcopy", &Viewer::copy));
    bar->addWidget(add_button("cmdsave", &Viewer::save_as));
    bar->addWidget(add_button("cmdpdf", &Viewer::make_pdf));
    bar->addWidget(add_button("cmdprint", &Viewer::print));
    bar->addStretch(1);
    auto* close_button = new QPushButton(this);
    close_button->setObjectName(QStringLiteral("cmdclose"));
    connect(close_button, &QPushButton::clicked, this, &QWidget::close);
    bar->addWidget(close_button);
    return bar;
}

/// The letters of Arabic make the buttons with words taller than those with signs.
void Viewer::set_button_heights() {
    int height = 0;
    const QList<QPushButton*> buttons = findChildren<QPushButton*>();
    for (const QPushButton* button : buttons)
        height = std::max(height, button->sizeHint().height());
    for (QPushButton* button : buttons)
        button->setFixedHeight(height);
}

/// The short answer of a run in words: wrapped, in the direction of the language.
QTextEdit* Viewer::make_answer(const QString& words) {
    auto* const answer = new QTextEdit(this);
    answer->setObjectName(QStringLiteral("txtanswer"));
    answer->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    answer->setAccessibleName(text_of(answer_name, language_));
    answer->setTabChangesFocus(true);
    QTextOption option = answer->document()->defaultTextOption();
    option.setTextDirection(direction_of(language_));
    answer->document()->setDefaultTextOption(option);
    answer->setPlainText(with_figures_in_order(words));
    return answer;
}

/// The text, below the short answer of its run.
QWidget* Viewer::make_reading() {
    const QString words = run_ != nullptr && is_file_ ? text_of(run_->short_answer(), language_) : QString();
    if (words.isEmpty())
        return view_;
    constexpr int share_of_answer = 2;
    constexpr int share_of_text = 3;
    auto* const both = new QSplitter(Qt::Vertical, this);
    both->setChildrenCollapsible(false);
    answer_ = make_answer(words);
    both->addWidget(answer_);
    both->addWidget(view_);
    both->setStretchFactor(0, share_of_answer);
    both->setStretchFactor(1, share_of_text);
    return both;
}

void Viewer::build() {
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(make_find_bar());
    layout->addWidget(make_reading(), 1);
    layout->addLayout(make_action_bar());
    set_spacing(*this);
    apply_language(*this, twins, language_);
    set_button_heights();
    // Only what comes from a file can be saved; "[*]" has a meaning of its own in titles.
    for (const char* name : {"cmdsave", "cmdpdf", "cmdprint"})
        findChild<QPushButton*>(QString::fromLatin1(name))->setEnabled(is_file_);
    setWindowTitle(title().replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
    connect(view_, &TextView::larger, this, &Viewer::zoom_in);
    connect(view_, &TextView::smaller, this, &Viewer::zoom_out);
    connect(view_, &TextView::cannot_copy, this,
            [this](const QString& words) { warn_of_file(this, words, language_); });
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
    add(QKeySequence(Qt::CTRL | Qt::Key_S), [this] {
        if (is_file_)
            save_as();
    });
    add(QKeySequence::Print, [this] {
        if (is_file_)
            print();
    });
}

void Viewer::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape)
        QWidget::keyPressEvent(event);
    else if (is_finding())
        stop_finding();
    else
        close();
}

void Viewer::go_to_language() {
    if (is_report(path_) || language_ == Language::english)
        return;
    // A heading is a line that the next one underlines.
    for (std::int64_t line = 0; line + 1 < std::min(text_->lines(), longest_guide); ++line)
        if (direction_of(text_->line(line), Qt::LeftToRight) == Qt::RightToLeft &&
            text_->line(line + 1).startsWith(u'=')) {
            view_->show_from(line);
            return;
        }
}

// --- Finding ---

void Viewer::find(TextSearch::Direction direction) {
    stop_finding();
    const bool forward = direction == TextSearch::Direction::forward;
    const TextPlace from =
        forward ? std::max(view_->anchor(), view_->cursor()) : std::min(view_->anchor(), view_->cursor());
    search_.emplace(text_, find_box_->text(), from, direction);
    go_on_finding();
    if (is_finding())
        find_timer_->start();
}

void Viewer::go_on_finding() {
    QElapsedTimer time;
    time.start();
    while (!search_->is_over() && !time.hasExpired(find_slice))
        search_->step();
    if (search_->is_over())
        end_finding();
    else
        found_->setText(text_of(finding, language_).arg(static_cast<int>(search_->percent())));
}

void Viewer::end_finding() {
    const std::optional<TextPlace> place = search_->found();
    stop_finding();
    const QString wanted = find_box_->text();
    if (place)
        view_->select(*place, {place->line, place->column + static_cast<int>(wanted.size())});
    else if (!wanted.isEmpty())
        found_->setText(text_of(not_found, language_));
    emit find_ended(place.has_value());
}

void Viewer::stop_finding() {
    find_timer_->stop();
    search_.reset();
    found_->clear();
}

void Viewer::find_next() {
    find(TextSearch::Direction::forward);
}

void Viewer::find_previous() {
    find(TextSearch::Direction::backward);
}

// --- Type ---

void Viewer::set_type(double points) {
    QFont font = view_->font();
    font.setPointSizeF(std::clamp(points, smallest_type, largest_type));
    view_->setFont(font);
    if (answer_ == nullptr)
        return;
    QFont words = answer_->font();
    words.setPointSizeF(font.pointSizeF());
    answer_->setFont(words);
}

void Viewer::zoom_in() {
    set_type(view_->font().pointSizeF() + 1);
}

void Viewer::zoom_out() {
    set_type(view_->font().pointSizeF() - 1);
}

void Viewer::zoom_normal() {
    set_type(normal_points_);
}

// --- Copies of the text ---

void Viewer::copy() {
    view_->copy();
}

void Viewer::save_as() {
    const QPointer<Viewer> self(this);
    const QString proposed = QFileInfo(path_).fileName();
    const QString name = choose_save_file(this, text_of(save_title, language_), proposed,
                                          save_kinds(proposed, run_ != nullptr, language_));
    if (self == nullptr || name.isEmpty())
        return;
    const auto format = format_of(QFileInfo(name).suffix().toLower().toStdString());
    if (run_ != nullptr && format && *format != ReportFormat::text)
        save_table(name, *format);
    else
        save_text(name);
}

void Viewer::save_text(const QString& name) {
    warning_of_failure(*this, language_, [this, &name] { text_->save(name.toStdString()); });
}

void Viewer::save_table(const QString& name, ReportFormat format) {
    // The window may be closed while the run goes on: nothing of it is used from there on.
    const RunPointer run = run_;
    warning_of_failure(*this, language_, [this, run, &name, format] {
        WaitProgress progress(title(), this);
        write_run(*run, format, name.toStdString(), progress);
    });
}

void Viewer::make_pdf() {
    const QString proposed = QFileInfo(path_).completeBaseName() + QStringLiteral(".pdf");
    const QPointer<Viewer> self(this);
    const QString name = choose_save_file(this, text_of(pdf_title, language_), proposed,
                                          {{QStringLiteral("PDF (*.pdf)"), QStringLiteral("pdf")}});
    if (self != nullptr && !name.isEmpty())
        write_pdf(name, nullptr);
}

PrintedText Viewer::printed() const {
    return {text_.get(), is_report(path_), title(), head_.first_title, head_.titles, language_};
}

/// In     like  whose pages and range the PDF has; none for the whole text on the usual page
void Viewer::write_pdf(const QString& name, const QPrinter* like) {
    // The window may be closed while a long text is printed: nothing of it is used from there on.
    const auto text = text_;
    warning_of_failure(*this, language_, [this, &name, like] {
        BesideFile target(name.toStdString());
        QPdfWriter writer(&target);
        writer.setTitle(title());
        writer.setCreator(QString::fromLatin1(program_title));
        if (like != nullptr)
            writer.setPageLayout(like->pageLayout());
        const PageRange range = like != nullptr ? PageRange{like->fromPage(), like->toPage()} : PageRange{};
        if (print_with_progress(writer, printed(), range, this))
            target.commit();
    });
}

void Viewer::print() {
    const auto text = text_;
    const QPointer<Viewer> self(this);
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title());
    if (!choose_printer(printer, *this))
        return;
    if (!printer.outputFileName().isEmpty()) {
        write_pdf(printer.outputFileName(), &printer);
        return;
    }
    const bool printing =
        print_with_progress(printer, printed(), {printer.fromPage(), printer.toPage()}, this);
    if (!printing && self != nullptr && printer.printerState() == QPrinter::Error)
        warn_of_file(this, text_of(not_printed, language_), language_);
}

} // namespace halvane
