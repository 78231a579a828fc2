// SPDX-License-Identifier: MIT
#include "panel/frmwait.h"

#include "panel/panelstyle.h"
#include "routines/waitseconds.h"
#include "ui_frmwait.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QWindow>
#include <cmath>
#include <vector>

namespace halvane {

std::int16_t waitcancel = 0;

namespace {

constexpr ControlText twins[] = {
    {"frmwait", "Please Wait!", "الرجاء الانتظار"},
    {"Label1", "Please Wait !", "الرجاء الانتظار"},
    {"lbllong", "Calculations for long period may take long time!",
     "الحسابات لفترة طويلة قد تحتاج بعض الدقائق"},
    {"bcancel", "&Cancel", "إلغاء"},
    {"Pro1@spoken", "Progress", "التقدم"},
};

constexpr TwinText time_left{"Time left: about %1", "الوقت المتبقي: نحو %1"};

constexpr double paint_pause = 0.1; // [s]

frmwait& wait_window() {
    static auto* window = new frmwait;
    return *window;
}

/// "m:ss" or "h:mm:ss"
QString duration(double seconds) {
    const auto whole = static_cast<qint64>(std::ceil(seconds));
    const auto two = [](qint64 number) { return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')); };
    const qint64 hours = whole / 3600;
    const qint64 minutes = whole / 60 % 60;
    const QString tail = u':' + two(whole % 60);
    return hours > 0 ? QString::number(hours) + u':' + two(minutes) + tail : QString::number(minutes) + tail;
}

std::vector<WaitProgress*>& runs() {
    static std::vector<WaitProgress*> under_way;
    return under_way;
}

} // namespace

std::span<const ControlText> frmwait_twins() {
    return twins;
}

frmwait::frmwait(QWidget* owner) : QDialog(owner), ui_(std::make_unique<Ui::frmwait>()) {
    ui_->setupUi(this);
    set_spacing(*this);
    keep_left_to_right(*ui_->lblpro1);
    keep_left_to_right(*ui_->Label2);
    keep_left_to_right(*ui_->Label3);
    connect(ui_->bcancel, &QPushButton::clicked, this, &frmwait::reject);
}

frmwait::~frmwait() = default;

void frmwait::load(const QString& what) {
    language_ = stored_language();
    apply_language(*this, twins, language_);
    set_fonts(language_);
    clock_.start();
    remaining_ = {};
    ui_->lblleft->clear();
    ui_->lblrun->setText(what);
    ui_->lblpro1->setText(QStringLiteral("0"));
    ui_->Pro1->setValue(0);
}

/// The window is kept: what the language of the run before has set goes first.
void frmwait::set_fonts(Language language) {
    constexpr double head_size = 1.3;
    const QString arabic = QStringLiteral("Arabic Transparent");
    setFont({});
    ui_->lbllong->setFont({});
    if (language == Language::arabic) {
        set_font_if_present(*this, arabic, font().pointSizeF());
        set_font_if_present(*ui_->lbllong, arabic, 14);
    }
    scale_font(*ui_->Label1, head_size);
    scale_font(*ui_->lblpro1, head_size);
}

void frmwait::show_percent(double p) {
    constexpr double milliseconds = 1000;
    show_percent(p, static_cast<double>(clock_.elapsed()) / milliseconds);
}

void frmwait::show_percent(double p, double seconds) {
    const auto bar = static_cast<float>(p);
    ui_->Pro1->setValue(static_cast<int>(std::floor(bar)));
    ui_->lblpro1->setText(QString::number(static_cast<int>(std::floor(p))) + QStringLiteral(" %"));
    remaining_.tell(seconds, p);
    const std::optional<double> left = remaining_.left();
    ui_->lblleft->setText(left ? text_of(time_left, language_).arg(isolated(duration(*left))) : QString());
}

void frmwait::show_over(QWidget* panel) {
    winId(); // makes the window that is told
    over_ = panel != nullptr ? panel->window()->windowHandle() : nullptr;
    if (isVisible() && windowHandle()->transientParent() != over_)
        hide(); // the order of windows is taken when one is shown
    windowHandle()->setTransientParent(over_);
    if (panel != nullptr)
        move(panel->window()->frameGeometry().center() - rect().center());
    show();
    raise();
}

void frmwait::stay_over_panel() {
    QWindow* const modal = QGuiApplication::modalWindow();
    const bool waits = over_ != nullptr && modal != nullptr && modal != over_ &&
                       !modal->isAncestorOf(over_, QWindow::IncludeTransients);
    if (!waits && windowHandle()->transientParent() != over_)
        windowHandle()->setTransientParent(over_);
}

/// A settings panel makes the run's panel wait, and with it what stands in front of that; Cancel answers all
/// the same.
bool frmwait::event(QEvent* event) {
    if (event->type() == QEvent::WindowBlocked)
        windowHandle()->setTransientParent(nullptr);
    return QDialog::event(event);
}

void frmwait::reject() {
    waitcancel = -1;
    cancel_runs();
    QDialog::reject();
}

WaitProgress::WaitProgress(const QString& what, QWidget* panel) : what_(what), panel_(panel) {
    runs().push_back(this);
    waitcancel = 0;
    frmwait& window = wait_window();
    window.load(what_);
    window.show_over(panel);
    if (panel != nullptr)
        note_ = new RunNote(*panel, what_, stored_language());
    waitseconds(paint_pause);
}

WaitProgress::~WaitProgress() {
    std::erase(runs(), this);
    delete note_.data();
    frmwait& window = wait_window();
    if (runs().empty()) {
        window.hide();
        return;
    }
    window.load(runs().back()->what_);
    if (window.isVisible())
        window.show_over(runs().back()->panel_);
}

void WaitProgress::percent(double p) {
    wait_window().show_percent(p);
    if (note_ != nullptr)
        note_->show_percent(p);
}

bool WaitProgress::yield() {
    if (!cancelled_) {
        wait_window().stay_over_panel();
        QCoreApplication::processEvents();
    }
    return !cancelled_;
}

void cancel_runs() {
    for (WaitProgress* run : runs())
        run->cancelled_ = true;
}

} // namespace halvane
