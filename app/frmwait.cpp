#include "app/frmwait.h"

#include "app/frmstyle.h"
#include "ephemeris/modgeneral.h"
#include "ui_frmwait.h"

#include <QCoreApplication>
#include <cmath>
#include <vector>

namespace halvane {

std::int16_t waitcancel = 0;

namespace {

constexpr Twin twins[] = {
    {"frmwait", "Please Wait!", "الرجاء الانتظار"},
    {"Label1", "Please Wait !", "الرجاء الانتظار"},
    {"lbllong", "Calculations for long period may take long time!",
     "الحسابات لفترة طويلة قد تحتاج بعض الدقائق"},
    {"bcancel", "&Cancel", "إلغاء"},
    {"Pro1@spoken", "Progress", "التقدم"},
};

constexpr double paint_pause = 0.1; // [s]

frmwait& wait_window() {
    static auto* window = new frmwait;
    return *window;
}

std::vector<WaitProgress*>& runs() {
    static std::vector<WaitProgress*> under_way;
    return under_way;
}

} // namespace

std::span<const Twin> frmwait_twins() {
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
    const Language language = stored_language();
    apply_language(*this, twins, language);
    set_fonts(language);
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
    const auto bar = static_cast<float>(p);
    ui_->Pro1->setValue(static_cast<int>(std::floor(bar)));
    ui_->lblpro1->setText(QString::number(static_cast<int>(std::floor(p))) + QStringLiteral(" %"));
}

void frmwait::reject() {
    waitcancel = -1;
    cancel_runs();
    QDialog::reject();
}

WaitProgress::WaitProgress(const QString& what) : what_(what) {
    runs().push_back(this);
    waitcancel = 0;
    frmwait& window = wait_window();
    window.load(what_);
    window.show();
    waitseconds(paint_pause);
}

WaitProgress::~WaitProgress() {
    std::erase(runs(), this);
    frmwait& window = wait_window();
    if (runs().empty())
        window.hide();
    else
        window.load(runs().back()->what_);
}

void WaitProgress::percent(double p) {
    wait_window().show_percent(p);
}

bool WaitProgress::yield() {
    if (!cancelled_)
        QCoreApplication::processEvents();
    return !cancelled_;
}

void cancel_runs() {
    for (WaitProgress* run : runs())
        run->cancelled_ = true;
}

} // namespace halvane
