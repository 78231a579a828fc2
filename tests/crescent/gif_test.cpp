// SPDX-License-Identifier: MIT
#include "crescent/gif.h"
#include "tests/crescent/gif_pictures.h"
#include "tests/support/programfolder.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <limits>
#include <map>
#include <memory>
#include <numeric>
#include <stdexcept>
#include <string>

#include <algorithm>
#include <cstdint>
#include <gif_lib.h>
#include <gtest/gtest.h>
#include <random>

namespace halvane::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t head_size = 6 + 7 + 768;
constexpr std::size_t descriptor_size = 10;
constexpr std::size_t control_size = 8;

std::string signature(const Bytes& file) {
    return {file.begin(), file.begin() + 6};
}

// ---------------------------------------------------------------------------------------- reading with
// giflib

struct DecodedGif {
    int width = 0;
    int height = 0;
    std::vector<RgbColour> colours;
    int transparent_entry = NO_TRANSPARENT_COLOR;
};

struct MemoryFile {
    const Bytes* bytes;
    std::size_t position;
};

int read_memory(GifFileType* gif, GifByteType* target, int size) {
    auto* memory = static_cast<MemoryFile*>(gif->UserData);
    const std::size_t count =
        std::min(static_cast<std::size_t>(size), memory->bytes->size() - memory->position);
    std::memcpy(target, memory->bytes->data() + memory->position, count);
    memory->position += count;
    return static_cast<int>(count);
}

DecodedGif decode(const Bytes& file) {
    MemoryFile memory{&file, 0};
    int error = 0;
    const auto close = [](GifFileType* gif) { DGifCloseFile(gif, nullptr); };
    const std::unique_ptr<GifFileType, decltype(close)> gif(DGifOpen(&memory, read_memory, &error), close);
    if (!gif || DGifSlurp(gif.get()) != GIF_OK || gif->ImageCount != 1) {
        throw std::runtime_error("giflib does not read the file");
    }
    DecodedGif decoded{gif->SWidth, gif->SHeight, {}};
    const auto area = static_cast<std::size_t>(gif->SWidth) * static_cast<std::size_t>(gif->SHeight);
    for (std::size_t pixel = 0; pixel < area; ++pixel) {
        const GifColorType& colour = gif->SColorMap->Colors[gif->SavedImages[0].RasterBits[pixel]];
        decoded.colours.push_back({colour.Red, colour.Green, colour.Blue});
    }
    GraphicsControlBlock control{};
    if (DGifSavedExtensionToGCB(gif.get(), 0, &control) == GIF_OK) {
        decoded.transparent_entry = control.TransparentColor;
    }
    return decoded;
}

// ------------------------------------------------------------------- a second, literal writer of the code
// stream

/// Compresses with a keyed collection of texts: the key of a string is that of its prefix and the next byte
/// as three digits.
std::vector<unsigned> codes_by_keyed_collection(const Bytes& indices) {
    const auto digits = [](std::uint8_t byte) {
        const std::string padded = "00" + std::to_string(byte);
        return padded.substr(padded.size() - 3);
    };
    std::map<std::string, unsigned> collection;
    const auto code_of = [&collection](const std::string& key) {
        return key.size() == 3 ? static_cast<unsigned>(std::stoul(key)) : collection.at(key);
    };
    std::vector<unsigned> codes = {256};
    std::string prefix;
    for (const std::uint8_t byte : indices) {
        const std::string key = prefix + digits(byte);
        if (prefix.empty() || collection.contains(key)) {
            prefix = key;
            continue;
        }
        codes.push_back(code_of(prefix));
        collection.emplace(key, static_cast<unsigned>(collection.size()) + 258);
        if (collection.size() == 253) {
            codes.push_back(256);
            collection.clear();
        }
        prefix = digits(byte);
    }
    codes.push_back(code_of(prefix));
    codes.push_back(257);
    return codes;
}

/// The sizes of the data blocks of a GIF87a file, the empty one at the end included.
std::vector<std::size_t> block_sizes(const Bytes& file) {
    std::vector<std::size_t> sizes;
    std::size_t position = head_size + descriptor_size + 1;
    do {
        sizes.push_back(file.at(position));
        position += 1 + sizes.back();
    } while (sizes.back() != 0);
    EXPECT_EQ(position + 1, file.size());
    EXPECT_EQ(file.at(position), 59);
    return sizes;
}

/// The code stream of a GIF87a file, read as codes of 9 bits up to and with the end code.
std::vector<unsigned> nine_bit_codes(const Bytes& file) {
    std::vector<bool> bits;
    std::size_t position = head_size + descriptor_size + 1;
    for (const std::size_t size : block_sizes(file)) {
        for (std::size_t byte = 1; byte <= size; ++byte) {
            for (unsigned bit = 0; bit < 8; ++bit) {
                bits.push_back((file.at(position + byte) >> bit & 1) != 0);
            }
        }
        position += 1 + size;
    }
    std::vector<unsigned> codes;
    for (std::size_t first = 0; first + 9 <= bits.size(); first += 9) {
        unsigned code = 0;
        for (unsigned bit = 0; bit < 9; ++bit) {
            code |= static_cast<unsigned>(bits[first + bit]) << bit;
        }
        codes.push_back(code);
    }
    const std::size_t leftover = bits.size() - 9 * codes.size();
    EXPECT_LT(leftover, 8U);
    return codes;
}

// ------------------------------------------------------------------------------------------------ other
// helpers

GifPicture one_row(const Bytes& indices) {
    GifPicture picture;
    picture.width = static_cast<int>(indices.size());
    picture.height = 1;
    picture.indices = indices;
    picture.palette.resize(256);
    for (std::size_t grey = 0; grey < 256; ++grey) {
        const auto part = static_cast<std::uint8_t>(grey);
        picture.palette[grey] = {part, part, part};
    }
    return picture;
}

GifPicture of_pixels(int width, int height, const std::vector<RgbColour>& pixels) {
    GifPicture picture;
    picture.width = width;
    picture.height = height;
    picture.pixels = pixels;
    return picture;
}

Bytes counting_indices(std::size_t count) {
    Bytes indices(count);
    std::iota(indices.begin(), indices.end(), std::uint8_t{0});
    return indices;
}

/// A folder of its own for one test, gone with it.
class GifFile : public ::testing::Test {
protected:
    static Bytes read(const std::filesystem::path& file_name) {
        std::ifstream file(file_name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    static void write(const std::filesystem::path& file_name, const std::string& content) {
        std::ofstream(file_name, std::ios::binary) << content;
    }
    [[nodiscard]] std::ptrdiff_t file_count() const {
        return std::distance(std::filesystem::directory_iterator(folder_.path()), {});
    }

    TemporaryFolder folder_;
};

// -------------------------------------------------------------------------------------------------------
// tests

TEST(Gif, GiflibReadsBackEveryRandomIndexedPicture) {
    for (int number = 0; number < random_picture_count; ++number) {
        const GifPicture picture = random_indexed_picture(number);
        const DecodedGif decoded = decode(gif_bytes(picture));
        ASSERT_EQ(decoded.width, picture.width) << number;
        ASSERT_EQ(decoded.height, picture.height) << number;
        ASSERT_TRUE(decoded.colours == shown_colours(picture)) << "picture " << number;
    }
}

TEST(Gif, EveryPixelOfA24BitPictureTakesTheNearestColour) {
    const std::array<int, 5> steps = {0, 64, 128, 192, 255};
    std::mt19937 random(5);
    std::vector<RgbColour> pixels;
    constexpr std::size_t count = 61UL * 67;
    pixels.reserve(count);
    for (std::size_t pixel = 0; pixel < count; ++pixel) {
        pixels.push_back({random_byte(random), random_byte(random), random_byte(random)});
    }
    const DecodedGif decoded = decode(gif_bytes(of_pixels(61, 67, pixels)));
    ASSERT_EQ(decoded.colours.size(), pixels.size());
    const auto distance = [](const RgbColour& a, const RgbColour& b) {
        const int red = a.red - b.red;
        const int green = a.green - b.green;
        const int blue = a.blue - b.blue;
        return red * red + green * green + blue * blue;
    };
    for (std::size_t pixel = 0; pixel < pixels.size(); ++pixel) {
        int nearest = std::numeric_limits<int>::max();
        for (int entry = 0; entry < 125; ++entry) {
            const auto part = [&steps](int step) {
                return static_cast<std::uint8_t>(steps[static_cast<std::size_t>(step % 5)]);
            };
            const RgbColour colour = {part(entry), part(entry / 5), part(entry / 25)};
            nearest = std::min(nearest, distance(pixels[pixel], colour));
        }
        ASSERT_EQ(distance(pixels[pixel], decoded.colours[pixel]), nearest) << "pixel " << pixel;
    }
}

TEST(Gif, ColourHalfwayBetweenTwoEntriesTakesTheDarker) {
    const DecodedGif decoded = decode(gif_bytes(of_pixels(2, 1, {{32, 96, 160}, {33, 97, 161}})));
    EXPECT_EQ(decoded.colours, (std::vector<RgbColour>{{0, 64, 128}, {64, 128, 192}}));
}

TEST(Gif, FixedPaletteRunsThroughRedFirstAndBlueLast) {
    const Bytes file = gif_bytes(of_pixels(1, 1, {RgbColour{}}));
    const auto entry = [&file](std::size_t number) {
        const std::size_t first = 13 + 3 * number;
        return RgbColour{file.at(first), file.at(first + 1), file.at(first + 2)};
    };
    EXPECT_EQ(entry(0), (RgbColour{0, 0, 0}));
    EXPECT_EQ(entry(1), (RgbColour{64, 0, 0}));
    EXPECT_EQ(entry(4), (RgbColour{255, 0, 0}));
    EXPECT_EQ(entry(5), (RgbColour{0, 64, 0}));
    EXPECT_EQ(entry(25), (RgbColour{0, 0, 64}));
    EXPECT_EQ(entry(3 * 25 + 2 * 5 + 1), (RgbColour{64, 128, 192}));
    EXPECT_EQ(entry(124), (RgbColour{255, 255, 255}));
    for (std::size_t number = 125; number < 256; ++number) {
        EXPECT_EQ(entry(number), (RgbColour{0, 0, 0})) << number;
    }
}

TEST(Gif, OneBlackPixelIsTheFileWorkedOutByHand) {
    const Bytes file = gif_bytes(of_pixels(1, 1, {RgbColour{}}));
    ASSERT_EQ(file.size(), head_size + descriptor_size + 1 + 5 + 1 + 1);
    EXPECT_EQ(signature(file), "GIF87a");
    EXPECT_EQ(Bytes(file.begin() + 6, file.begin() + 13), (Bytes{1, 0, 1, 0, 247, 0, 0}));
    // Codes 256, 0, 257: bits 8, 18 and 26 of the stream are set.
    EXPECT_EQ(Bytes(file.begin() + head_size, file.end()),
              (Bytes{44, 0, 0, 0, 0, 1, 0, 1, 0, 7, 8, 4, 0x00, 0x01, 0x04, 0x04, 0, 59}));
}

TEST(Gif, CodeStreamEqualsThatOfAKeyedCollectionOfTexts) {
    for (int number = 0; number < 60; ++number) {
        const GifPicture picture = random_indexed_picture(number);
        ASSERT_EQ(nine_bit_codes(gif_bytes(picture)), codes_by_keyed_collection(picture.indices))
            << "picture " << number;
    }
}

TEST(Gif, ClearsTheStringsAtTheirTwoHundredFiftyThird) {
    const Bytes indices = counting_indices(700); // no pair comes twice before 256 codes have passed
    const std::vector<unsigned> codes = nine_bit_codes(gif_bytes(one_row(indices)));
    EXPECT_EQ(codes.at(0), 256U);
    EXPECT_EQ(codes.at(1), 0U);
    EXPECT_EQ(codes.at(253), 252U);
    EXPECT_EQ(codes.at(254), 256U);
    EXPECT_EQ(codes.at(255), 253U);
    EXPECT_EQ(codes.at(508), 256U);
    EXPECT_EQ(codes.back(), 257U);
    EXPECT_EQ(decode(gif_bytes(one_row(indices))).colours, shown_colours(one_row(indices)));
}

TEST(Gif, KeepsRowPaddingOutOfTheFile) {
    for (int width = 1; width <= 9; ++width) {
        GifPicture picture = one_row(counting_indices(static_cast<std::size_t>(width) * 3));
        picture.width = width;
        picture.height = 3;
        const DecodedGif decoded = decode(gif_bytes(picture));
        EXPECT_EQ(decoded.width, width);
        EXPECT_EQ(decoded.colours, shown_colours(picture)) << "width " << width;
    }
}

TEST(Gif, FullLastBlockIsFollowedByTheTerminatorAlone) {
    // 224 literals, the clear code and the end code are 226 codes of 9 bits: 255 bytes.
    EXPECT_EQ(block_sizes(gif_bytes(one_row(counting_indices(224)))), (std::vector<std::size_t>{255, 0}));
    EXPECT_EQ(block_sizes(gif_bytes(one_row(counting_indices(225)))), (std::vector<std::size_t>{255, 1, 0}));
    EXPECT_EQ(block_sizes(gif_bytes(one_row(counting_indices(223)))), (std::vector<std::size_t>{254, 0}));
}

TEST(Gif, TransparentColourOfTheTableMakesAGif89a) {
    GifPicture picture = one_row({0, 1, 2, 3});
    picture.palette = {{9, 9, 9}, {1, 2, 3}, {7, 7, 7}, {1, 2, 3}};
    const Bytes file = gif_bytes(picture, RgbColour{1, 2, 3});
    EXPECT_EQ(signature(file), "GIF89a");
    EXPECT_EQ(Bytes(file.begin() + head_size, file.begin() + head_size + control_size),
              (Bytes{33, 249, 4, 9, 0, 0, 1, 0}));
    const DecodedGif decoded = decode(file);
    EXPECT_EQ(decoded.transparent_entry, 1);
    EXPECT_EQ(decoded.colours, shown_colours(picture));
}

TEST(Gif, TransparentColourOutsideTheTableLeavesAGif87a) {
    GifPicture picture = one_row({0, 1});
    const Bytes file = gif_bytes(picture, RgbColour{1, 2, 3});
    EXPECT_EQ(signature(file), "GIF87a");
    EXPECT_EQ(file, gif_bytes(picture));
}

TEST(Gif, BlackBeyondAShortPaletteIsFoundAsTransparent) {
    GifPicture picture = one_row({0, 1});
    picture.palette = {{255, 255, 255}, {200, 0, 0}};
    EXPECT_EQ(decode(gif_bytes(picture, RgbColour{0, 0, 0})).transparent_entry, 2);
}

TEST(Gif, RefusesPicturesWhoseSizeAndContentDiffer) {
    EXPECT_TRUE(gif_bytes(GifPicture{}).empty());
    EXPECT_TRUE(gif_bytes(of_pixels(2, 2, {RgbColour{}, RgbColour{}, RgbColour{}})).empty());
    EXPECT_TRUE(gif_bytes(of_pixels(-1, -1, {RgbColour{}})).empty());
    EXPECT_TRUE(gif_bytes(of_pixels(65536, 1, std::vector<RgbColour>(65536))).empty());
    GifPicture two_contents = one_row({1});
    two_contents.pixels = {RgbColour{}};
    EXPECT_TRUE(gif_bytes(two_contents).empty());
    GifPicture long_palette = one_row({1});
    long_palette.palette.emplace_back();
    EXPECT_TRUE(gif_bytes(long_palette).empty());
}

TEST(Gif, WidestPictureIsWritten) {
    const std::vector<RgbColour> pixels(65535, RgbColour{255, 0, 0});
    const DecodedGif decoded = decode(gif_bytes(of_pixels(65535, 1, pixels)));
    EXPECT_EQ(decoded.width, 65535);
    EXPECT_EQ(decoded.colours, pixels);
}

TEST_F(GifFile, SaveWritesTheBytesOfThePicture) {
    const GifPicture picture = random_indexed_picture(10);
    GIF gif;
    ASSERT_TRUE(gif.SaveGIF(picture, folder_ / "map.gif"));
    EXPECT_EQ(read(folder_ / "map.gif"), gif_bytes(picture));
    EXPECT_EQ(file_count(), 1);
}

TEST_F(GifFile, ExistingFileIsReplaced) {
    write(folder_ / "map.gif", std::string(100000, 'x'));
    const GifPicture picture = of_pixels(1, 1, {RgbColour{255, 0, 0}});
    GIF gif;
    ASSERT_TRUE(gif.SaveGIF(picture, folder_ / "map.gif"));
    EXPECT_EQ(read(folder_ / "map.gif"), gif_bytes(picture));
    EXPECT_EQ(file_count(), 1);
}

TEST_F(GifFile, RowEventCountsEveryRowUpToAllOfThem) {
    std::vector<double> percentages;
    GIF gif;
    gif.on_row_done([&percentages](double percentage) { percentages.push_back(percentage); });
    ASSERT_TRUE(gif.SaveGIF(of_pixels(3, 4, std::vector<RgbColour>(12)), folder_ / "rows.gif"));
    EXPECT_EQ(percentages, (std::vector<double>{25, 50, 75, 100}));
}

TEST_F(GifFile, SecondSaveDuringARunDoesNothing) {
    GIF gif;
    int refused = 0;
    gif.on_row_done([&](double) { refused += gif.SaveGIF(one_row({1}), folder_ / "second.gif") ? 0 : 1; });
    ASSERT_TRUE(gif.SaveGIF(of_pixels(1, 5, std::vector<RgbColour>(5)), folder_ / "first.gif"));
    EXPECT_EQ(refused, 5);
    EXPECT_TRUE(std::filesystem::exists(folder_ / "first.gif"));
    EXPECT_FALSE(std::filesystem::exists(folder_ / "second.gif"));
    gif.on_row_done({});
    EXPECT_TRUE(gif.SaveGIF(one_row({1}), folder_ / "second.gif"));
}

TEST_F(GifFile, RowEventMayReplaceItselfDuringARun) {
    GIF gif;
    int rows = 0;
    gif.on_row_done([&](double) {
        ++rows;
        gif.on_row_done({});
    });
    ASSERT_TRUE(gif.SaveGIF(of_pixels(1, 5, std::vector<RgbColour>(5)), folder_ / "rows.gif"));
    EXPECT_EQ(rows, 5);
}

TEST_F(GifFile, FailedSaveLeavesTheExistingFileAsItWas) {
    write(folder_ / "map.gif", "kept");
    GIF gif;
    EXPECT_FALSE(gif.SaveGIF(GifPicture{}, folder_ / "map.gif"));
    EXPECT_EQ(read(folder_ / "map.gif"), (Bytes{'k', 'e', 'p', 't'}));
    gif.on_row_done([](double) { throw std::runtime_error("stopped"); });
    EXPECT_THROW(gif.SaveGIF(one_row({1}), folder_ / "map.gif"), std::runtime_error);
    EXPECT_EQ(read(folder_ / "map.gif"), (Bytes{'k', 'e', 'p', 't'}));
    EXPECT_EQ(file_count(), 1);
    gif.on_row_done({});
    EXPECT_TRUE(gif.SaveGIF(one_row({1}), folder_ / "map.gif"));
}

TEST_F(GifFile, NameThatCannotBeWrittenIsAFailure) {
    GIF gif;
    EXPECT_FALSE(gif.SaveGIF(one_row({1}), folder_ / "no such folder" / "map.gif"));
    EXPECT_FALSE(gif.SaveGIF(one_row({1}), std::filesystem::path()));
    std::filesystem::create_directory(folder_ / "folder.gif");
    EXPECT_FALSE(gif.SaveGIF(one_row({1}), folder_ / "folder.gif"));
    EXPECT_EQ(file_count(), 1);
}

} // namespace
} // namespace halvane::test
