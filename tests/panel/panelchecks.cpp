// SPDX-License-Identifier: MIT
#include "tests/panel/panelchecks.h"

#include <QCoreApplication>
#include <QLineEdit>

namespace halvane {

std::string language_name(const ::testing::TestParamInfo<Language>& row) {
    return row.param == Language::english ? "English" : "Arabic";
}

std::string caption_name(const ::testing::TestParamInfo<ControlText>& row) {
    return row.param.control;
}

void expect_caption(QWidget& form, const ControlText& twin, Language language) {
    EXPECT_EQ(caption(form, twin.control), text_of(twin.text, language)) << twin.control;
}

void expect_captions(QWidget& form, std::span<const ControlText> twins, Language language) {
    SCOPED_TRACE(form.objectName().toStdString());
    EXPECT_EQ(wrong_captions(form, twins, language), QStringList());
    EXPECT_EQ(form.layoutDirection(), language == Language::english ? Qt::LeftToRight : Qt::RightToLeft);
}

void expect_usable(QWidget& form) {
    SCOPED_TRACE(form.objectName().toStdString());
    form.show();
    // Before the focus comes: it leaves the other options of its group to the arrow keys.
    EXPECT_EQ(unreachable_controls(form), QStringList());
    QCoreApplication::processEvents();
    EXPECT_EQ(nameless_controls(form), QStringList());
    EXPECT_EQ(shared_access_keys(form), QStringList());
    EXPECT_EQ(cut_texts(form), QStringList());
}

void expect_focus_selects_text(QWidget& form, const char* name) {
    auto& box = control<QLineEdit>(form, name);
    box.deselect();
    focus(form, name);
    EXPECT_EQ(box.selectedText(), box.text()) << name;
    EXPECT_FALSE(box.text().isEmpty()) << name;
}

void expect_warning(const SeenMessage& seen, const QString& title, const QString& text) {
    EXPECT_EQ(seen.title, title);
    EXPECT_EQ(seen.text, text);
    EXPECT_TRUE(seen.exclamation);
    EXPECT_EQ(seen.buttons.size(), 1);
}

} // namespace halvane
