// SPDX-License-Identifier: MIT
#pragma once

#include "base/failure.h"
#include "panel/language.h"

#include <exception>
#include <functional>

class QMessageBox;

namespace halvane {

/// Shows a message with the exclamation icon and an OK button and waits for it.
void warn(QWidget* parent, const QString& title, const QString& text, Language language);
void warn(QWidget* parent, const TwinMessage& message, Language language);
void warn(QWidget* parent, const Refusal& refusal, Language language);

/// Asks with the exclamation icon and the buttons Yes and No; closing the box is No.
bool ask(QWidget* parent, const QString& title, const QString& text, Language language);

/// All the words of a failure in the language.
QString words_of(const RunTimeFailure& failure, Language language);

/// Tells that the program ends: what failed, in which file or calculation, and the remedy of that kind.
void tell_failure(const std::exception& failure, Language language);

/// A sentence for each series file that is not the delivered one, see series_notes.
QStringList series_warnings(Language language);

/// Asks under which name to save; an empty text when the user gives up.
/// In     proposed  bare name, or a path to start from
///        filter    as file dialogs take it ("PDF (*.pdf)"); empty for every file
///        suffix    for a name without one; empty leaves the name as it is
QString choose_save_file(QWidget* parent, const QString& title, const QString& proposed,
                         const QString& filter, const QString& suffix = {});

/// Asks under which name to save a picture, as choose_save_file does; no question is put about a file that is
/// there, since the caller may change the name's ending and then asks for the name that it writes.
QString choose_picture_file(QWidget* parent, const QString& title, const QString& proposed,
                            const QString& filter);

/// Answers choose_save_file and choose_picture_file in the user's place: title and proposed name in, chosen
/// name out.
using FileChooser = std::function<QString(const QString& title, const QString& proposed)>;

/// Puts another chooser in place of the file dialog; an empty one gives the dialog back.
void set_file_chooser(FileChooser chooser);

/// Presents a box that is ready to be shown; true for OK and Yes.
using MessagePresenter = std::function<bool(QMessageBox&)>;

/// Puts another presenter in place of showing the box to the user; an empty one gives the user back.
/// Returns the presenter that stood before.
MessagePresenter set_message_presenter(MessagePresenter presenter);

} // namespace halvane
