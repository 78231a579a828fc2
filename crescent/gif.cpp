// SPDX-License-Identifier: MIT
#include "crescent/gif.h"

#include "stored/outputfile.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace halvane {
namespace {

using Bytes = std::vector<std::uint8_t>;
using ColourTable = std::array<RgbColour, 256>;

constexpr int largest_side = 65535;
constexpr std::array<int, 5> palette_steps = {0, 64, 128, 192, 255};

constexpr unsigned minimum_code_size = 8;
constexpr unsigned code_width = 9;
constexpr unsigned clear_code = 256;
constexpr unsigned end_code = 257;
constexpr unsigned first_free_code = 258;
constexpr unsigned largest_key_count = 253;

ColourTable fixed_palette() {
    ColourTable table{};
    std::size_t entry = 0;
    for (const int blue : palette_steps) {
        for (const int green : palette_steps) {
            for (const int red : palette_steps) {
                table[entry++] = {static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green),
                                  static_cast<std::uint8_t>(blue)};
            }
        }
    }
    return table;
}

std::size_t nearest_step(int value) {
    const auto nearer = [value](int a, int b) { return std::abs(value - a) < std::abs(value - b); };
    const auto* const step = std::min_element(palette_steps.begin(), palette_steps.end(), nearer);
    return static_cast<std::size_t>(step - palette_steps.begin());
}

// The steps are the same in the three parts, so the nearest entry is that of the nearest step in each part.
Bytes reduce_colours(const std::vector<RgbColour>& pixels) {
    std::array<std::size_t, 256> step{};
    for (std::size_t value = 0; value < step.size(); ++value) {
        step[value] = nearest_step(static_cast<int>(value));
    }
    Bytes indices(pixels.size());
    std::transform(pixels.begin(), pixels.end(), indices.begin(), [&step](const RgbColour& colour) {
        const std::size_t steps = palette_steps.size();
        const std::size_t entry = (step[colour.blue] * steps + step[colour.green]) * steps + step[colour.red];
        return static_cast<std::uint8_t>(entry);
    });
    return indices;
}

bool is_valid(const GifPicture& picture) {
    if (picture.width < 1 || picture.width > largest_side || picture.height < 1 ||
        picture.height > largest_side) {
        return false;
    }
    const std::size_t area =
        static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    if (picture.indices.empty()) {
        return picture.pixels.size() == area && picture.palette.empty();
    }
    return picture.indices.size() == area && picture.pixels.empty() && picture.palette.size() <= 256;
}

void put_word(Bytes& bytes, int value) {
    bytes.push_back(static_cast<std::uint8_t>(value & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(value >> 8 & 0xFF));
}

void put_bytes(Bytes& bytes, std::initializer_list<std::uint8_t> values) {
    for (const std::uint8_t value : values) {
        bytes.push_back(value);
    }
}

void put_text(Bytes& bytes, std::string_view text) {
    for (const char character : text) {
        bytes.push_back(static_cast<std::uint8_t>(character));
    }
}

void put_head(Bytes& bytes, const GifPicture& picture, const ColourTable& table,
              const std::optional<std::uint8_t>& transparent_entry) {
    put_text(bytes, transparent_entry ? "GIF89a" : "GIF87a");
    put_word(bytes, picture.width);
    put_word(bytes, picture.height);
    put_bytes(bytes, {247, 0, 0}); // global table of 256 entries of 8 bits, background, aspect
    for (const RgbColour& colour : table) {
        put_bytes(bytes, {colour.red, colour.green, colour.blue});
    }
    if (transparent_entry) {
        put_bytes(bytes, {33, 249, 4, 9, 0, 0, *transparent_entry, 0});
    }
    put_bytes(bytes, {44, 0, 0, 0, 0});
    put_word(bytes, picture.width);
    put_word(bytes, picture.height);
    put_bytes(bytes, {7, minimum_code_size});
}

/// Packs codes, least significant bit first, into blocks of at most 255 bytes that begin with their count.
class CodeBlocks {
public:
    explicit CodeBlocks(Bytes& bytes) : bytes_(bytes) {}

    void put(unsigned code) {
        bits_ |= code << bit_count_;
        bit_count_ += code_width;
        while (bit_count_ >= 8) {
            put_byte();
            bit_count_ -= 8;
        }
    }

    void finish() {
        if (bit_count_ > 0) {
            put_byte();
            bit_count_ = 0;
        }
        write_block();
        bytes_.push_back(0);
    }

private:
    void put_byte() {
        block_[++block_[0]] = static_cast<std::uint8_t>(bits_ & 0xFF);
        bits_ >>= 8;
        if (block_[0] == 255) {
            write_block();
        }
    }

    void write_block() {
        if (block_[0] > 0) {
            bytes_.insert(bytes_.end(), block_.begin(), block_.begin() + 1 + block_[0]);
            block_[0] = 0;
        }
    }

    Bytes& bytes_;
    std::array<std::uint8_t, 256> block_{};
    unsigned bits_ = 0;
    unsigned bit_count_ = 0;
};

/// The strings met since the last clear code, each as the code of its prefix and the byte that follows.
class StringTable {
public:
    StringTable() : codes_(code_count * 256, 0) { keys_.reserve(largest_key_count); }

    /// The code of the string, or 0 when it has none yet.
    [[nodiscard]] unsigned find(unsigned prefix, std::uint8_t byte) const {
        return codes_[key(prefix, byte)];
    }

    void add(unsigned prefix, std::uint8_t byte) {
        codes_[key(prefix, byte)] = static_cast<std::uint16_t>(first_free_code + keys_.size());
        keys_.push_back(key(prefix, byte));
    }

    [[nodiscard]] bool is_full() const { return keys_.size() == largest_key_count; }

    void clear() {
        for (const std::size_t used : keys_) {
            codes_[used] = 0;
        }
        keys_.clear();
    }

private:
    static constexpr std::size_t code_count = first_free_code + largest_key_count;
    static std::size_t key(unsigned prefix, std::uint8_t byte) { return prefix * std::size_t{256} + byte; }

    std::vector<std::uint16_t> codes_;
    std::vector<std::size_t> keys_;
};

class Compressor {
public:
    explicit Compressor(Bytes& bytes) : blocks_(bytes) { blocks_.put(clear_code); }

    void put(std::uint8_t byte) {
        if (!prefix_) {
            prefix_ = byte;
        } else if (const unsigned code = strings_.find(*prefix_, byte); code != 0) {
            prefix_ = code;
        } else {
            add_string(byte);
        }
    }

    void finish() {
        if (prefix_) {
            blocks_.put(*prefix_);
        }
        blocks_.put(end_code);
        blocks_.finish();
    }

private:
    void add_string(std::uint8_t byte) {
        blocks_.put(*prefix_);
        strings_.add(*prefix_, byte);
        if (strings_.is_full()) {
            blocks_.put(clear_code);
            strings_.clear();
        }
        prefix_ = byte;
    }

    CodeBlocks blocks_;
    StringTable strings_;
    std::optional<unsigned> prefix_;
};

void put_rows(Bytes& bytes, const GifPicture& picture, const Bytes& indices, const GifRowEvent& row_done) {
    Compressor compressor(bytes);
    auto pixel = indices.begin();
    for (int row = 0; row < picture.height; ++row) {
        const auto row_end = pixel + picture.width;
        std::for_each(pixel, row_end, [&compressor](std::uint8_t index) { compressor.put(index); });
        pixel = row_end;
        if (row_done) {
            row_done(100.0 * (row + 1) / picture.height);
        }
    }
    compressor.finish();
}

std::optional<std::uint8_t> entry_of(const ColourTable& table, const std::optional<RgbColour>& colour) {
    if (!colour) {
        return std::nullopt;
    }
    const auto* const entry = std::find(table.begin(), table.end(), *colour);
    if (entry == table.end()) {
        return std::nullopt;
    }
    return static_cast<std::uint8_t>(entry - table.begin());
}

/// Returns the failure when there is one.
std::optional<RunTimeFailure> replace_file(const std::filesystem::path& file_name, const Bytes& bytes) {
    try {
        save_result(file_name.string(), {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    } catch (const RunTimeFailure& failure) {
        return failure;
    }
    return std::nullopt;
}

class BusySpan {
public:
    explicit BusySpan(bool& busy) : busy_(busy) { busy_ = true; }
    ~BusySpan() { busy_ = false; }
    BusySpan(const BusySpan&) = delete;
    BusySpan& operator=(const BusySpan&) = delete;

private:
    bool& busy_;
};

} // namespace

std::vector<std::uint8_t> gif_bytes(const GifPicture& picture, const std::optional<RgbColour>& transparent,
                                    const GifRowEvent& row_done) {
    if (!is_valid(picture)) {
        return {};
    }
    const bool is_indexed = !picture.indices.empty();
    ColourTable table{};
    if (is_indexed) {
        std::copy(picture.palette.begin(), picture.palette.end(), table.begin());
    } else {
        table = fixed_palette();
    }
    Bytes bytes;
    put_head(bytes, picture, table, entry_of(table, transparent));
    put_rows(bytes, picture, is_indexed ? picture.indices : reduce_colours(picture.pixels), row_done);
    bytes.push_back(59);
    return bytes;
}

void GIF::on_row_done(GifRowEvent row_done) {
    row_done_ = std::move(row_done);
}

// The row event may end what the caller holds, so the arguments are this run's own.
// NOLINTBEGIN(performance-unnecessary-value-param)
bool GIF::SaveGIF(GifPicture picture, std::filesystem::path file_name, std::optional<RgbColour> transparent) {
    if (busy_) {
        return false;
    }
    const BusySpan busy(busy_);
    failure_.reset();
    const GifRowEvent row_done = row_done_;
    const std::vector<std::uint8_t> bytes = gif_bytes(picture, transparent, row_done);
    if (bytes.empty())
        return false;
    failure_ = replace_file(file_name, bytes);
    return !failure_;
}
// NOLINTEND(performance-unnecessary-value-param)

} // namespace halvane
