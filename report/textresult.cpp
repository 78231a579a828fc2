// SPDX-License-Identifier: MIT
#include "report/textresult.h"

#include <cstddef>
#include <utility>

namespace halvane {

TextResult::TextResult(std::string path) {
    file_.emplace(std::move(path), FileRights::of_umask);
}

void TextResult::end_line() {
    constexpr std::size_t much = 65536;
    if (file_ && text_.size() >= much)
        pass_on();
}

void TextResult::pass_on() {
    file_->write(text_);
    text_.clear();
}

void TextResult::commit() {
    if (!file_)
        return;
    pass_on();
    file_->commit();
    file_.reset();
}

} // namespace halvane
