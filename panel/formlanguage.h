// SPDX-License-Identifier: MIT
#pragma once

#include "base/language.h"
#include "base/twintext.h"

#include <QString>
#include <span>

class QWidget;

namespace halvane {

/// The language of `pref.vsk`.
/// Error  raises RunTimeFailure for a missing or damaged file.
Language stored_language();

/// The direction that texts of the language are read in.
Qt::LayoutDirection direction_of(Language language);

/// The language that apply_language gave to the form of `control`.
Language language_of(const QWidget& control);

/// One row of a form's table of texts. `control` is the objectName of the control; an empty name, or the
/// form's own, stands for the window title. "name@spoken" is the name a screen reader says for a control that
/// has no label of its own, "name@tip" its tool tip. Texts have "&" before the access key.
struct ControlText {
    const char* control;
    TwinText text;

    constexpr ControlText(const char* name, const char* english, const char* arabic)
        : control(name), text{english, arabic} {}
};

/// The text in `language`.
QString text_of(const TwinText& text, Language language);
QString text_of(const TwinWords& words, Language language);

/// Puts `texts` in place and gives the form the direction of the language. Labels and inputs mirror with it;
/// controls marked by keep_left_to_right do not.
void apply_language(QWidget& form, std::span<const ControlText> texts, Language language);

/// The control keeps its direction in Arabic: maps, dials, number tables and plain figures.
void keep_left_to_right(QWidget& control);

/// Sets a font of the Arabic design where the machine has it; else the control keeps its own font.
/// In     family, points  as the design names them
/// Returns whether the font was set.
bool set_font_if_present(QWidget& control, const QString& family, double points);

/// Gives Qt's own texts (the menus of entry boxes, the file and print dialogs) the language; a missing
/// translation is passed over.
void use_standard_texts(Language language);

/// `text` wrapped so that it keeps its inner order within text of the other direction.
QString isolated(const QString& text);

/// `text` whose figures keep their signs, points and degrees in order within words of the other direction.
QString with_figures_in_order(QString text);

} // namespace halvane
