// SPDX-License-Identifier: MIT
#pragma once

#include "base/failure.h"
#include "panel/formlanguage.h"

#include <exception>
#include <functional>

class QMessageBox;

namespace halvane {

/// Shows a message with the exclamation icon and an OK button and waits for it.
void warn(QWidget* parent, const QString& title, const QString& text, Language language);
void warn(QWidget* parent, const TwinMessage& message, Language language);
void warn(QWidget* parent, const Refusal& refusal, Language language);

/// Warns of a file, or of a printer, that does not do.
void warn_of_file(QWidget* parent, const QString& words, Language language);

/// Does a work, and warns of its failure as of a file, unless the work has seen `parent` go.
void warning_of_failure(QWidget& parent, Language language, const std::function<void()>& work);

/// Asks with the exclamation icon and the buttons Yes and No; closing the box is No.
bool ask(QWidget* parent, const QString& title, const QString& text, Language language);

/// Asks so where Yes loses what cannot be had again: Enter is No too.
bool ask_before_loss(QWidget* parent, const QString& title, const QString& text, Language language);

/// All the words of a failure in the language.
QString words_of(const RunTimeFailure& failure, Language language);

/// Tells that the program ends: what failed, in which file or calculation, and the remedy of that kind.
void tell_failure(const std::exception& failure, Language language);

/// A sentence for each series file that is not the delivered one, see series_notes.
QStringList series_warnings(Language language);

/// A kind of file that can be saved.
struct SaveKind {
    QString filter; ///< as file dialogs take it ("PDF (*.pdf)")
    QString suffix; ///< without a point; for a name that has none
};

/// The kind of a format, as file dialogs take it.
/// In     ending  without a point
SaveKind save_kind(const QString& words, const QString& ending);

/// `name` with the ending of `kind` in the place of that of another kind, or behind it where it has none of
/// theirs.
QString name_of_kind(const QString& name, const SaveKind& kind, const QList<SaveKind>& kinds);

/// Asks under which name to save; an empty text when the user gives up. Choosing another kind gives the name
/// that kind's ending in the place of the one before.
/// In     proposed  bare name, or a path to start from
///        kinds     to choose from, the usual one first; none for every file
QString choose_save_file(QWidget* parent, const QString& title, const QString& proposed,
                         const QList<SaveKind>& kinds);

/// Asks which file to open; an empty text when the user gives up.
/// In     filter  as file dialogs take it
QString choose_open_file(QWidget* parent, const QString& title, const QString& filter);

/// Asks under which name to save a picture, as choose_save_file does; no question is put about a file that is
/// there, since the caller may change the name's ending and then asks for the name that it writes.
QString choose_picture_file(QWidget* parent, const QString& title, const QString& proposed,
                            const QString& filter);

/// Answers choose_save_file, choose_open_file and choose_picture_file in the user's place: title and proposed
/// name (none for a file to open) in, chosen name out.
using FileChooser = std::function<QString(const QString& title, const QString& proposed)>;

/// Puts another chooser in place of the file dialog; an empty one gives the dialog back.
void set_file_chooser(FileChooser chooser);

/// Presents a box that is ready to be shown; true for OK and Yes.
using MessagePresenter = std::function<bool(QMessageBox&)>;

/// Puts another presenter in place of showing the box to the user; an empty one gives the user back.
/// Returns the presenter that stood before.
MessagePresenter set_message_presenter(MessagePresenter presenter);

} // namespace halvane
