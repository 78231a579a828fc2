// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"

#include <QDialog>
#include <memory>

namespace halvane {

namespace Ui {
class frmqmap;
}

/// The texts of `frmqmap`.
std::span<const ControlText> frmqmap_twins();

/// The world map of the Qiblah's directions, `qmap.gif` of the program folder, above the other windows for as
/// long as it is open. A missing picture is told in its place.
class frmqmap : public QDialog {
    Q_OBJECT
public:
    explicit frmqmap(QWidget* owner = nullptr);
    ~frmqmap() override;

    /// Puts a form above the other windows, or back among them.
    static void TopMost(QWidget& form, bool flag);

    void done(int result) override;

private:
    void show_picture(Language language);

    std::unique_ptr<Ui::frmqmap> ui_;
};

} // namespace halvane
