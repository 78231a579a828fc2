// SPDX-License-Identifier: MIT
#include "panel/textsearch.h"

#include <algorithm>
#include <utility>

namespace halvane {

namespace {

constexpr int lines_of_step = 256;

} // namespace

TextSearch::TextSearch(std::shared_ptr<const KeptText> text, QString words, const TextPlace& from,
                       Direction direction)
    : text_(std::move(text)), words_(std::move(words)), from_(from), direction_(direction),
      over_(words_.isEmpty()) {}

double TextSearch::percent() const {
    return 100.0 * static_cast<double>(std::min(done_, text_->lines())) / static_cast<double>(text_->lines());
}

/// The first and the last round are in the line of the start: first the part ahead of it, last all of it.
bool TextSearch::look_in(std::int64_t line) {
    const QString content = text_->line(line);
    const bool first = done_ == 0;
    qsizetype column = -1;
    if (direction_ == Direction::forward)
        column = content.indexOf(words_, first ? from_.column : 0, Qt::CaseInsensitive);
    else if (const qsizetype last = (first ? from_.column : content.size()) - words_.size(); last >= 0)
        column = content.lastIndexOf(words_, last, Qt::CaseInsensitive);
    if (column < 0)
        return false;
    found_ = TextPlace{line, static_cast<int>(column)};
    return true;
}

void TextSearch::step() {
    const std::int64_t lines = text_->lines();
    for (int i = 0; i < lines_of_step && !over_; ++i) {
        const std::int64_t away = done_ % lines;
        const std::int64_t line = direction_ == Direction::forward ? (from_.line + away) % lines
                                                                   : (from_.line - away + lines) % lines;
        over_ = look_in(line) || done_ == lines;
        ++done_;
    }
}

} // namespace halvane
