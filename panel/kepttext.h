// SPDX-License-Identifier: MIT
#pragma once

#include "base/failure.h"
#include "system/descriptor.h"
#include "system/fileidentity.h"

#include <QString>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace halvane {

/// A place in a text: the line and the character of it, both counted from 0. The character is counted in
/// UTF-16 units, as QString does.
struct TextPlace {
    std::int64_t line = 0;
    int column = 0;
    auto operator<=>(const TextPlace&) const = default; // NOLINT(modernize-use-nullptr): none is written
};

/// The text of a file as it was when it was opened, of any size. It stays as it was, whatever later takes the
/// file's name or changes the file: a short text is held in memory, a long one in a copy on the disk that has
/// no name. Where the disk has no room for the copy, the file itself is kept open, and a change made in it is
/// found before another byte of it is given.
///
/// Bytes that are not UTF-8 are taken as Windows-1256. Lines end with LF or CR LF; a line of more than
/// `longest_kept_line` bytes goes on in the next one.
class KeptText {
public:
    static constexpr std::size_t longest_kept_line = 16384; // [bytes]

    /// Error  raises RunTimeFailure naming the file when it cannot be read or is no regular file.
    static std::shared_ptr<const KeptText> of_file(const std::string& path);
    /// A text that is not a file's.
    static std::shared_ptr<const KeptText> of_words(const QString& words);

    KeptText(const KeptText&) = delete;
    KeptText& operator=(const KeptText&) = delete;

    /// At least 1: what follows the last line end is a line too.
    std::int64_t lines() const { return lines_; }
    /// Of any line                                                                           [characters]
    std::int64_t longest_line() const { return longest_; }
    /// Of the file                                                                                [bytes]
    std::int64_t size() const { return size_; }

    /// The line without its end; empty beyond the last, and when the text can no longer be read: `lost` then
    /// tells why.
    QString line(std::int64_t number) const;
    /// The place behind the last character.
    TextPlace end() const;
    const std::optional<RunTimeFailure>& lost() const { return lost_; }
    /// What stands from one place to another, lines ended by LF.
    /// Error  raises RunTimeFailure when the text can no longer be read; so do the routines below.
    QString between(const TextPlace& from, const TextPlace& to) const;
    /// The count of bytes from one place to another.
    std::int64_t bytes_between(const TextPlace& from, const TextPlace& to) const;
    /// Puts the file's own bytes in the place of `path` in one step; the old content stands until then.
    /// Error  raises RunTimeFailure naming `path` when it cannot be written.
    void save(const std::string& path) const;

private:
    struct Row {
        std::size_t start = 0; ///< within the block's bytes
        std::size_t length = 0;
    };
    /// The lines from one entry of the index to the next.
    struct Block {
        std::int64_t number = -1;
        std::string bytes;
        std::vector<Row> rows;
    };
    class Reader;

    KeptText() = default;
    void take(Descriptor file);
    std::string bytes_at(std::int64_t from, std::int64_t to) const;
    void require_unchanged() const;
    const Block& block_of(std::int64_t line) const;
    std::int64_t offset_of(const TextPlace& place) const;
    QString decoded(std::string_view bytes) const;

    std::string name_;
    std::string held_;
    Descriptor file_; ///< the copy, or the file itself; none for a text in memory
    bool is_copy_ = false;
    FileIdentity state_; ///< of the file when it was opened
    std::int64_t size_ = 0;
    std::int64_t start_ = 0; ///< of the text, behind a byte order mark
    std::int64_t lines_ = 1;
    std::int64_t longest_ = 0;
    bool utf8_ = true;
    std::vector<std::int64_t> index_; ///< where every 64th line begins
    mutable std::optional<RunTimeFailure> lost_;
    mutable Block blocks_[4];
    mutable std::size_t next_block_ = 0;
};

} // namespace halvane
