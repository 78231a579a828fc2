// SPDX-License-Identifier: MIT
#include "qibla/frmqmap.h"

#include "panel/currentplatform.h"
#include "panel/formpage.h"
#include "panel/panelstyle.h"
#include "panel/picturebox.h"
#include "ui_frmqmap.h"

namespace halvane {

namespace {

constexpr ControlText twins[] = {
    {"frmqmap", "Halvane: Qiblah World Map", "Halvane: خارطة العالم للقبلة"},
    {"lblqmap",
     "Red numbers at the top and the bottom are the Qiblah direction from the True North for each color band",
     "الأرقام الحمراء الموجودة أعلى و أدنى الخارطة تشير إلى سمت القبلة عن الشمال الجغرافي لكل حزمة لونية"},
    {"cmdclose", "&Close", "إغلاق"},
    {"imgqmap@spoken", "World map of the Qiblah direction", "خارطة العالم لاتجاه القبلة"},
};

constexpr TwinText no_picture{"The picture qmap.gif is missing from the program folder.",
                              "الصورة qmap.gif غير موجودة في مجلد البرنامج."};

} // namespace

std::span<const ControlText> frmqmap_twins() {
    return twins;
}

frmqmap::frmqmap(QWidget* owner) : QDialog(owner), ui_(std::make_unique<Ui::frmqmap>()) {
    ui_->setupUi(this);
    const Language language = stored_language();
    keep_left_to_right(*ui_->imgqmap);
    apply_language(*this, twins, language);
    set_spacing(*this);
    show_picture(language);
    connect(ui_->cmdclose, &QPushButton::clicked, this, &QDialog::reject);
    fit_form(*this, Qt::Horizontal | Qt::Vertical);
    TopMost(*this, true);
}

frmqmap::~frmqmap() = default;

void frmqmap::TopMost(QWidget& form, bool flag) {
    platform().keep_on_top(&form, flag);
}

void frmqmap::show_picture(Language language) {
    ui_->imgqmap->set_picture(QPixmap::fromImage(stored_picture("qmap.gif")));
    ui_->imgqmap->set_words_without_picture(text_of(no_picture, language));
}

void frmqmap::done(int result) {
    QDialog::done(result);
    TopMost(*this, false);
}

} // namespace halvane
