// SPDX-License-Identifier: MIT
#include "panel/formlanguage.h"

#include "stored/pref.h"
#include "stored/programfolder.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QFontDatabase>
#include <QGroupBox>
#include <QLabel>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <QStyle>
#include <QTranslator>
#include <QVariant>
#include <QWidget>

namespace halvane {

namespace {

void set_caption(QWidget& control, const QString& text) {
    if (auto* label = qobject_cast<QLabel*>(&control))
        label->setText(text);
    else if (auto* button = qobject_cast<QAbstractButton*>(&control))
        button->setText(text);
    else if (auto* frame = qobject_cast<QGroupBox*>(&control))
        frame->setTitle(text);
    else
        control.setWindowTitle(text);
}

constexpr const char* designed_alignment = "designed_alignment";

/// A label takes its side from the direction of its own text; here it takes it from the panel's.
void align_label(QLabel& label) {
    QVariant designed = label.property(designed_alignment);
    if (!designed.isValid()) {
        designed = static_cast<int>(label.alignment());
        label.setProperty(designed_alignment, designed);
    }
    label.setAlignment(QStyle::visualAlignment(label.layoutDirection(), Qt::Alignment(designed.toInt())) |
                       Qt::AlignAbsolute);
}

void apply_text(QWidget& form, const ControlText& row, Language language) {
    const QString text = text_of(row.text, language);
    const QStringList target = QString::fromLatin1(row.control).split(u'@');
    QWidget* control =
        target[0].isEmpty() || target[0] == form.objectName() ? &form : form.findChild<QWidget*>(target[0]);
    if (control == nullptr)
        return;
    if (target.size() == 1)
        set_caption(*control, text);
    else if (target[1] == QLatin1String("spoken"))
        control->setAccessibleName(text);
    else
        control->setToolTip(text);
}

} // namespace

Language stored_language() {
    return read_pref().language();
}

Qt::LayoutDirection direction_of(Language language) {
    return language == Language::english ? Qt::LeftToRight : Qt::RightToLeft;
}

Language language_of(const QWidget& control) {
    return control.window()->isRightToLeft() ? Language::arabic : Language::english;
}

QString text_of(const TwinText& text, Language language) {
    return QString::fromUtf8(text.in(language));
}

QString text_of(const TwinWords& words, Language language) {
    return QString::fromStdString(words.in(language));
}

void apply_language(QWidget& form, std::span<const ControlText> texts, Language language) {
    form.setLayoutDirection(direction_of(language));
    for (const ControlText& row : texts)
        apply_text(form, row, language);
    for (QLabel* label : form.findChildren<QLabel*>()) {
        align_label(*label);
        // What a label shows may be the user's own text, which is no markup.
        if (label->textFormat() == Qt::AutoText)
            label->setTextFormat(Qt::PlainText);
    }
}

void keep_left_to_right(QWidget& control) {
    control.setLayoutDirection(Qt::LeftToRight);
}

bool set_font_if_present(QWidget& control, const QString& family, double points) {
    if (!QFontDatabase::hasFamily(family))
        return false;
    QFont font = control.font();
    font.setFamily(family);
    font.setPointSizeF(points);
    control.setFont(font);
    return true;
}

void use_standard_texts(Language language) {
    static QTranslator arabic;
    QCoreApplication::removeTranslator(&arabic);
    if (language == Language::english)
        return;
    const QString name = QStringLiteral("qtbase_ar");
    if (arabic.load(name, QString::fromStdString(delivered_path("translations"))) ||
        arabic.load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&arabic);
}

QString isolated(const QString& text) {
    return QChar(0x2068) + text + QChar(0x2069);
}

QString with_figures_in_order(QString text) {
    const QRegularExpression figure(QStringLiteral("([+-]?[0-9](?:[0-9.:-]*[0-9])?°?)"));
    return text.replace(figure, QStringLiteral("\u2066\\1\u2069"));
}

} // namespace halvane
