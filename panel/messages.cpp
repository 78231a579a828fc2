// SPDX-License-Identifier: MIT
#include "panel/messages.h"

#include "base/failure.h"
#include "base/version.h"
#include "routines/seriesloader.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <algorithm>
#include <utility>

namespace halvane {

namespace {

constexpr TwinText last_words{"Halvane cannot go on and ends now. Nothing more is written.",
                              "لا يستطيع البرنامج المتابعة و سينتهي الآن. لن يكتب شيء آخر."};
constexpr TwinText file_error{"File Error", "خطأ"};
constexpr TwinText warning{"Warning: ", "تنبيه: "};

/// One way out for each kind of failure.
TwinText remedy(FailureKind kind) {
    switch (kind) {
    case FailureKind::missing_file:
        return {"Put this file back where it belongs and start Halvane again.",
                "أعد هذا الملف إلى مكانه ثم افتح البرنامج من جديد."};
    case FailureKind::damaged_file:
        return {"Correct what was found there, or put a sound copy of this file in its place, and start "
                "Halvane again.",
                "صحح ما وجد هناك أو ضع نسخة سليمة من هذا الملف في مكانه ثم افتح البرنامج من جديد."};
    case FailureKind::no_right:
        return {"Give yourself the right to read and write this file and its folder and start Halvane again.",
                "امنح نفسك إذن القراءة و الكتابة لهذا الملف و مجلده ثم افتح البرنامج من جديد."};
    case FailureKind::no_space:
        return {"Make room on the disk of this file and start Halvane again.",
                "وفر مساحة على قرص هذا الملف ثم افتح البرنامج من جديد."};
    case FailureKind::system:
        return {"See that this file and its folder can be used and start Halvane again.",
                "تأكد من صلاحية هذا الملف و مجلده ثم افتح البرنامج من جديد."};
    case FailureKind::no_finite_value:
        return {"Start Halvane again and choose another date, or correct the location (height, pressure, "
                "temperature).",
                "افتح البرنامج من جديد و اختر تاريخا آخر أو صحح الموقع (الارتفاع و الضغط و الحرارة)."};
    case FailureKind::no_memory:
        return {"Close other programs or choose a shorter period, and start Halvane again.",
                "أغلق برامج أخرى أو اختر فترة أقصر ثم افتح البرنامج من جديد."};
    case FailureKind::other:
        break;
    }
    return {"Start Halvane again.", "افتح البرنامج من جديد."};
}

MessagePresenter& presenter() {
    static MessagePresenter current;
    return current;
}

FileChooser& chooser() {
    static FileChooser current;
    return current;
}

bool present(QMessageBox& box) {
    // Names of places and what a file holds are no markup.
    for (QLabel* label : box.findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    if (presenter())
        return presenter()(box);
    const int answer = box.exec();
    return answer == QMessageBox::Ok || answer == QMessageBox::Yes;
}

void set_arabic_buttons(QMessageBox& box) {
    const std::pair<QMessageBox::StandardButton, QString> texts[] = {
        {QMessageBox::Ok, QStringLiteral("موافق")},
        {QMessageBox::Yes, QStringLiteral("نعم")},
        {QMessageBox::No, QStringLiteral("لا")},
    };
    for (const auto& [which, text] : texts)
        if (QAbstractButton* button = box.button(which))
            button->setText(text);
}

bool show_box(QWidget* parent, const QString& title, const QString& text, Language language,
              QMessageBox::StandardButtons buttons,
              QMessageBox::StandardButton of_enter = QMessageBox::NoButton) {
    // It goes with its owner, which may be closed while it waits.
    const QPointer<QMessageBox> box = new QMessageBox(QMessageBox::Warning, title, text, buttons, parent);
    box->setDefaultButton(of_enter);
    if (language == Language::arabic) {
        box->setLayoutDirection(Qt::RightToLeft);
        set_arabic_buttons(*box);
    }
    const bool agreed = present(*box);
    delete box;
    return agreed;
}

/// Asks by `dialog`, which ends with the answer or with its owner.
QString chosen_in(const QPointer<QFileDialog>& dialog, const QString& proposed) {
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->selectFile(QFileInfo(proposed).fileName());
    const bool agreed = dialog->exec() == QDialog::Accepted;
    QString chosen = agreed && dialog != nullptr ? dialog->selectedFiles().value(0) : QString();
    delete dialog;
    return chosen;
}

} // namespace

void warn(QWidget* parent, const QString& title, const QString& text, Language language) {
    show_box(parent, title, text, language, QMessageBox::Ok);
}

void warn(QWidget* parent, const TwinMessage& message, Language language) {
    warn(parent, text_of(message.title, language), text_of(message.text, language), language);
}

void warn(QWidget* parent, const Refusal& refusal, Language language) {
    warn(parent, text_of(refusal.title, language), text_of(refusal.text, language), language);
}

void warn_of_file(QWidget* parent, const QString& words, Language language) {
    warn(parent, text_of(file_error, language), isolated(words), language);
}

void warning_of_failure(QWidget& parent, Language language, const std::function<void()>& work) {
    const QPointer<QWidget> self(&parent);
    try {
        work();
    } catch (const RunTimeFailure& failure) {
        if (self != nullptr)
            warn_of_file(self, words_of(failure, language), language);
    }
}

bool ask(QWidget* parent, const QString& title, const QString& text, Language language) {
    return show_box(parent, title, text, language, QMessageBox::Yes | QMessageBox::No);
}

bool ask_before_loss(QWidget* parent, const QString& title, const QString& text, Language language) {
    return show_box(parent, title, text, language, QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
}

QString words_of(const RunTimeFailure& failure, Language language) {
    return QString::fromStdString(words_of(failure.parts(), language));
}

QStringList series_warnings(Language language) {
    QStringList warnings;
    for (const std::string& note : series_notes(language))
        warnings += text_of(warning, language) + QString::fromStdString(note) + u'.';
    return warnings;
}

void tell_failure(const std::exception& failure, Language language) {
    const FailureParts parts = parts_of(failure);
    QMessageBox box(QMessageBox::Critical, QString::fromLatin1(program_title), text_of(last_words, language),
                    QMessageBox::Ok);
    QStringList words{isolated(QString::fromStdString(words_of(parts, language)))};
    words += series_warnings(language);
    words += text_of(remedy(parts.kind), language);
    box.setInformativeText(words.join(QStringLiteral("\n\n")));
    if (language == Language::arabic) {
        box.setLayoutDirection(Qt::RightToLeft);
        set_arabic_buttons(box);
    }
    present(box);
}

SaveKind save_kind(const QString& words, const QString& ending) {
    // The mark keeps the pattern's order beside Arabic words.
    return {words + QStringLiteral(" \u200E(*.") + ending + u')', ending};
}

QString name_of_kind(const QString& name, const SaveKind& kind, const QList<SaveKind>& kinds) {
    qsizetype longest = 0;
    for (const SaveKind& other : kinds)
        if (name.endsWith(u'.' + other.suffix, Qt::CaseInsensitive))
            longest = std::max(longest, other.suffix.size() + 1);
    return name.isEmpty() ? name : name.chopped(longest) + u'.' + kind.suffix;
}

QString choose_save_file(QWidget* parent, const QString& title, const QString& proposed,
                         const QList<SaveKind>& kinds) {
    if (chooser())
        return chooser()(title, proposed);
    QStringList filters;
    for (const SaveKind& kind : kinds)
        filters += kind.filter;
    auto* const dialog =
        new QFileDialog(parent, title, QFileInfo(proposed).path(), filters.join(QStringLiteral(";;")));
    if (!kinds.isEmpty())
        dialog->setDefaultSuffix(kinds.front().suffix);
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog, [dialog, kinds](const QString& filter) {
        for (const SaveKind& kind : kinds)
            if (kind.filter == filter) {
                dialog->setDefaultSuffix(kind.suffix);
                dialog->selectFile(
                    name_of_kind(QFileInfo(dialog->selectedFiles().value(0)).fileName(), kind, kinds));
            }
    });
    return chosen_in(dialog, proposed);
}

QString choose_open_file(QWidget* parent, const QString& title, const QString& filter) {
    if (chooser())
        return chooser()(title, {});
    const QPointer<QFileDialog> dialog(new QFileDialog(parent, title, {}, filter));
    dialog->setFileMode(QFileDialog::ExistingFile);
    const bool agreed = dialog->exec() == QDialog::Accepted;
    QString chosen = agreed && dialog != nullptr ? dialog->selectedFiles().value(0) : QString();
    delete dialog;
    return chosen;
}

QString choose_picture_file(QWidget* parent, const QString& title, const QString& proposed,
                            const QString& filter) {
    if (chooser())
        return chooser()(title, proposed);
    auto* const dialog = new QFileDialog(parent, title, QFileInfo(proposed).path(), filter);
    dialog->setOption(QFileDialog::DontConfirmOverwrite);
    return chosen_in(dialog, proposed);
}

void set_file_chooser(FileChooser wanted) {
    chooser() = std::move(wanted);
}

MessagePresenter set_message_presenter(MessagePresenter wanted) {
    return std::exchange(presenter(), std::move(wanted));
}

} // namespace halvane
