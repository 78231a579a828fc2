// SPDX-License-Identifier: MIT
#include "panel/kepttext.h"

#include "stored/outputfile.h"
#include "stored/textfile.h"
#include "stored/windows1256.h"
#include "system/path.h"
#include "system/regularfile.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <optional>

namespace halvane {

namespace {

constexpr std::int64_t lines_of_block = 64;
constexpr std::size_t portion = 262144;              // bytes read at once
constexpr std::size_t held_in_memory = 4 * mebibyte; // bytes
constexpr std::string_view mark = "\xEF\xBB\xBF";    // of the byte order
constexpr int looks = 3;                             // at a file that is being written

constexpr TwinText same_file{"the text that was opened", "النص الذي فتح"};
constexpr TwinText changed_file{"another program's change in it", "تغيير أجراه برنامج آخر"};

bool is_continuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Where lines begin, byte by byte.
class LineStarts {
public:
    /// Takes the next byte; whether a line begins with it.
    bool begins_at(char byte) {
        const bool too_long = length_ >= KeptText::longest_kept_line && byte != '\n' && byte != '\r' &&
                              (!is_continuation(byte) || length_ >= KeptText::longest_kept_line + 3);
        const bool begins = ended_ || too_long;
        length_ = begins ? 1 : length_ + 1;
        ended_ = byte == '\n';
        return begins;
    }
    /// The last byte has ended its line.
    bool at_line_end() const { return ended_; }

private:
    std::size_t length_ = 0;
    bool ended_ = false;
};

/// How many of `bytes`, counted from the first, end with a whole UTF-8 character.
std::size_t whole_characters(std::string_view bytes) {
    constexpr std::size_t longest_character = 4;
    for (std::size_t back = 1; back <= std::min(longest_character, bytes.size()); ++back) {
        const char byte = bytes[bytes.size() - back];
        if (is_continuation(byte))
            continue;
        const auto lead = static_cast<unsigned char>(byte);
        const std::size_t length = lead >= 0xF0U ? 4 : lead >= 0xE0U ? 3 : lead >= 0xC0U ? 2 : 1;
        return length > back ? bytes.size() - back : bytes.size();
    }
    return bytes.size();
}

/// A file of its own beside `path`, or where temporary files go, that has no name; none where there is no
/// room.
Descriptor copy_beside(const std::string& path) {
    const std::string parent = folder_of(path);
    const std::string folders[] = {parent.empty() ? "." : parent,
                                   std::filesystem::temp_directory_path().string()};
    for (const std::string& folder : folders)
        if (Descriptor file = nameless_file(folder); file.is_open())
            return file;
    return Descriptor();
}

} // namespace

/// Finds the lines of a text that is handed to it portion by portion.
class KeptText::Reader {
public:
    explicit Reader(std::int64_t start) : at_(start) { index.push_back(start); }

    void read(std::string_view bytes) {
        check(bytes);
        for (const char byte : bytes)
            take(byte);
    }
    void end() {
        if (starts_.at_line_end())
            begin_line();
        end_line();
        utf8 = utf8 && tail_.empty();
    }

    std::vector<std::int64_t> index;
    std::int64_t lines = 1;
    std::int64_t longest_utf8 = 0;
    std::int64_t longest_single = 0;
    bool utf8 = true;

private:
    void take(char byte) {
        if (starts_.begins_at(byte))
            begin_line();
        ++at_;
        if (byte == '\n' || byte == '\r')
            return;
        ++single_;
        characters_ += is_continuation(byte) ? 0 : static_cast<unsigned char>(byte) >= 0xF0U ? 2 : 1;
    }
    void end_line() {
        longest_utf8 = std::max(longest_utf8, characters_);
        longest_single = std::max(longest_single, single_);
    }
    void begin_line() {
        end_line();
        if (lines % lines_of_block == 0)
            index.push_back(at_);
        ++lines;
        characters_ = single_ = 0;
    }
    void check(std::string_view bytes) {
        const auto is_ascii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80U; };
        if (!utf8 || (tail_.empty() && std::all_of(bytes.begin(), bytes.end(), is_ascii)))
            return;
        tail_ += bytes;
        const std::size_t whole = whole_characters(tail_);
        utf8 = is_utf8(std::string_view(tail_).substr(0, whole));
        tail_.erase(0, whole);
    }

    std::int64_t at_;
    LineStarts starts_;
    std::int64_t characters_ = 0;
    std::int64_t single_ = 0;
    std::string tail_;
};

std::shared_ptr<const KeptText> KeptText::of_words(const QString& words) {
    const std::shared_ptr<KeptText> text(new KeptText);
    text->held_ = words.toStdString();
    text->size_ = static_cast<std::int64_t>(text->held_.size());
    Reader reader(0);
    reader.read(text->held_);
    reader.end();
    text->index_ = reader.index;
    text->lines_ = reader.lines;
    text->longest_ = reader.longest_utf8;
    return text;
}

std::shared_ptr<const KeptText> KeptText::of_file(const std::string& path) {
    const std::shared_ptr<KeptText> text(new KeptText);
    text->name_ = path;
    text->take(open_regular_file(path));
    return text;
}

/// One pass over the file: keeps its bytes and finds its lines. A file that changes meanwhile is read again.
void KeptText::take(Descriptor file) {
    for (int look = 0; look < looks; ++look) {
        state_ = FileIdentity::of(file.number());
        const bool is_long = file.size() > held_in_memory;
        Descriptor copy = is_long ? copy_beside(name_) : Descriptor();
        is_copy_ = copy.is_open();
        held_.clear();
        size_ = 0;
        std::string bytes(portion, '\0');
        std::optional<Reader> reader;
        for (;;) {
            const std::ptrdiff_t count = read_at(file.number(), bytes.data(), portion, size_);
            if (count < 0)
                throw file_failure(FileAction::read, name_, errno);
            std::string_view read(bytes.data(), static_cast<std::size_t>(count));
            if (!is_long)
                held_ += read;
            else if (is_copy_)
                is_copy_ = write_whole(copy.number(), read);
            size_ += count;
            if (!reader) {
                start_ = read.starts_with(mark) ? static_cast<std::int64_t>(mark.size()) : 0;
                reader.emplace(start_);
                read.remove_prefix(static_cast<std::size_t>(start_));
            }
            if (count == 0)
                break;
            reader->read(read);
            if (!is_long && size_ > static_cast<std::int64_t>(held_in_memory))
                break; // it grows: the next look takes it as a long one
        }
        reader->end();
        index_ = std::move(reader->index);
        lines_ = reader->lines;
        utf8_ = reader->utf8;
        longest_ = utf8_ ? reader->longest_utf8 : reader->longest_single;
        if (FileIdentity::of(file.number()).has_content_of(state_)) {
            file_ = is_copy_ ? std::move(copy) : is_long ? std::move(file) : Descriptor();
            return;
        }
    }
    throw damaged_file(name_, same_file, changed_file);
}

void KeptText::require_unchanged() const {
    if (file_.is_open() && !is_copy_ && !FileIdentity::of(file_.number()).has_content_of(state_))
        throw damaged_file(name_, same_file, changed_file);
}

std::string KeptText::bytes_at(std::int64_t from, std::int64_t to) const {
    if (!file_.is_open())
        return held_.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from));
    std::string bytes(static_cast<std::size_t>(to - from), '\0');
    std::size_t done = 0;
    while (done < bytes.size()) {
        const std::ptrdiff_t count = read_at(file_.number(), bytes.data() + done, bytes.size() - done,
                                             from + static_cast<std::int64_t>(done));
        if (count <= 0) {
            require_unchanged();
            throw file_failure(FileAction::read, name_, count < 0 ? errno : EIO);
        }
        done += static_cast<std::size_t>(count);
    }
    require_unchanged();
    return bytes;
}

const KeptText::Block& KeptText::block_of(std::int64_t line) const {
    const std::int64_t number = line / lines_of_block;
    for (const Block& block : blocks_)
        if (block.number == number)
            return block;
    Block& block = blocks_[next_block_];
    next_block_ = (next_block_ + 1) % std::size(blocks_);
    block.number = -1;
    const auto entry = static_cast<std::size_t>(number);
    const std::int64_t to = entry + 1 < index_.size() ? index_[entry + 1] : size_;
    block.bytes = bytes_at(index_[entry], to);
    block.rows.assign(1, {});
    LineStarts starts;
    for (std::size_t at = 0; at < block.bytes.size(); ++at) {
        if (starts.begins_at(block.bytes[at]))
            block.rows.push_back({at, 0});
        if (block.bytes[at] != '\n')
            ++block.rows.back().length;
    }
    if (starts.at_line_end())
        block.rows.push_back({block.bytes.size(), 0});
    block.number = number;
    return block;
}

QString KeptText::decoded(std::string_view bytes) const {
    QString text = utf8_ ? QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()))
                         : QString::fromStdString(utf8_of_windows1256(bytes));
    return text.remove(u'\r');
}

QString KeptText::line(std::int64_t number) const {
    if (number < 0 || number >= lines_)
        return {};
    try {
        const Block& block = block_of(number);
        const Row& row = block.rows[static_cast<std::size_t>(number % lines_of_block)];
        return decoded(std::string_view(block.bytes).substr(row.start, row.length));
    } catch (const RunTimeFailure& failure) {
        lost_ = failure;
        return {};
    }
}

TextPlace KeptText::end() const {
    return {lines_ - 1, static_cast<int>(line(lines_ - 1).size())};
}

std::int64_t KeptText::offset_of(const TextPlace& place) const {
    if (place.line >= lines_)
        return size_;
    const Block& block = block_of(place.line);
    const Row& row = block.rows[static_cast<std::size_t>(place.line % lines_of_block)];
    std::size_t at = row.start;
    for (int column = 0; at < row.start + row.length; ++at) {
        const char byte = block.bytes[at];
        if (byte == '\r' || (utf8_ && is_continuation(byte)))
            continue;
        if (column >= place.column)
            break;
        column += utf8_ && static_cast<unsigned char>(byte) >= 0xF0U ? 2 : 1;
    }
    return index_[static_cast<std::size_t>(place.line / lines_of_block)] + static_cast<std::int64_t>(at);
}

QString KeptText::between(const TextPlace& from, const TextPlace& to) const {
    return decoded(bytes_at(offset_of(from), offset_of(to)));
}

std::int64_t KeptText::bytes_between(const TextPlace& from, const TextPlace& to) const {
    return offset_of(to) - offset_of(from);
}

void KeptText::save(const std::string& path) const {
    OutputFile file(path, FileRights::of_umask);
    for (std::int64_t at = 0; at < size_; at += static_cast<std::int64_t>(portion))
        file.write(bytes_at(at, std::min(size_, at + static_cast<std::int64_t>(portion))));
    file.commit();
}

} // namespace halvane
