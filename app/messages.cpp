#include "app/messages.h"

#include "app/version.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QMessageBox>
#include <utility>

namespace halvane {

namespace {

constexpr Twin failure{"", "Halvane cannot go on and ends now. Nothing more is written.",
                       "لا يستطيع البرنامج المتابعة و سينتهي الآن. لن يكتب شيء آخر."};
constexpr Twin remedy{
    "",
    "Put a sound copy of that file into the program folder, or correct the value that is named, "
    "and start Halvane again.",
    "ضع نسخة سليمة من هذا الملف في مجلد البرنامج، أو صحح القيمة المذكورة، ثم افتح البرنامج من جديد."};

MessagePresenter& presenter() {
    static MessagePresenter current;
    return current;
}

FileChooser& chooser() {
    static FileChooser current;
    return current;
}

bool present(QMessageBox& box) {
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
              QMessageBox::StandardButtons buttons) {
    QMessageBox box(QMessageBox::Warning, title, text, buttons, parent);
    box.setTextFormat(Qt::PlainText);
    if (language == Language::arabic) {
        box.setLayoutDirection(Qt::RightToLeft);
        set_arabic_buttons(box);
    }
    return present(box);
}

} // namespace

void warn(QWidget* parent, const QString& title, const QString& text, Language language) {
    show_box(parent, title, text, language, QMessageBox::Ok);
}

void warn(QWidget* parent, const TwinMessage& message, Language language) {
    warn(parent, text_of(message.title, language), text_of(message.text, language), language);
}

bool ask(QWidget* parent, const QString& title, const QString& text, Language language) {
    return show_box(parent, title, text, language, QMessageBox::Yes | QMessageBox::No);
}

void tell_failure(const std::string& words, Language language) {
    QMessageBox box(QMessageBox::Critical, QString::fromLatin1(program_title), text_of(failure, language),
                    QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(isolated(QString::fromStdString(words)) + QStringLiteral("\n\n") +
                           text_of(remedy, language));
    if (language == Language::arabic) {
        box.setLayoutDirection(Qt::RightToLeft);
        set_arabic_buttons(box);
    }
    present(box);
}

QString choose_save_file(QWidget* parent, const QString& title, const QString& proposed,
                         const QString& filter, const QString& suffix) {
    if (chooser())
        return chooser()(title, proposed);
    QFileDialog dialog(parent, title, QFileInfo(proposed).path(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(QFileInfo(proposed).fileName());
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void set_file_chooser(FileChooser wanted) {
    chooser() = std::move(wanted);
}

MessagePresenter set_message_presenter(MessagePresenter wanted) {
    return std::exchange(presenter(), std::move(wanted));
}

} // namespace halvane
