// SPDX-License-Identifier: MIT
#pragma once

#include "panel/kepttext.h"

#include <memory>
#include <optional>

namespace halvane {

/// Looks for words in a text of any size, some lines at a time, from a place on to the text's end and then
/// around to that place again. Capital and small letters are the same.
class TextSearch {
public:
    enum class Direction { forward, backward };

    /// In     from  behind it, or before it when the search goes backward
    TextSearch(std::shared_ptr<const KeptText> text, QString words, const TextPlace& from,
               Direction direction);

    /// Looks through some more lines. Once `is_over()`, `found()` is the answer.
    void step();
    bool is_over() const { return over_; }
    /// Where the words begin; none when they are nowhere.
    const std::optional<TextPlace>& found() const { return found_; }
    /// How much of the text has been looked through                                          [0 to 100]
    double percent() const;

private:
    bool look_in(std::int64_t line);

    std::shared_ptr<const KeptText> text_;
    QString words_;
    TextPlace from_;
    Direction direction_;
    std::int64_t done_ = 0; ///< lines
    bool over_ = false;
    std::optional<TextPlace> found_;
};

} // namespace halvane
