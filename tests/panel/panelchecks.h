// SPDX-License-Identifier: MIT
#pragma once

#include "tests/panel/panelharness.h"

namespace halvane {

/// The names of tests that are made for each language, and for each row of a table of captions.
std::string language_name(const ::testing::TestParamInfo<Language>& row);
std::string caption_name(const ::testing::TestParamInfo<ControlText>& row);

/// The control of `twin` shows its caption of `language`.
void expect_caption(QWidget& form, const ControlText& twin, Language language);

/// The whole form shows its captions of `language` and has the direction of that language.
void expect_captions(QWidget& form, std::span<const ControlText> twins, Language language);

/// Shows the form: every control can be named, reached by the Tab key, told from the others by its access key
/// and read whole.
void expect_usable(QWidget& form);

/// The focus selects the whole text, which is not empty, of the entry box `name`.
void expect_focus_selects_text(QWidget& form, const char* name);

/// The box warns with these words and asks nothing.
void expect_warning(const SeenMessage& seen, const QString& title, const QString& text);

} // namespace halvane
