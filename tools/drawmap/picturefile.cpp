// SPDX-License-Identifier: MIT
#include "tools/drawmap/picturefile.h"

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <vector>

#include <gif_lib.h>
#include <libimagequant.h>

namespace halvane {
namespace {

constexpr int colour_count = 256;

struct Release {
    void operator()(liq_attr* attributes) const { liq_attr_destroy(attributes); }
    void operator()(liq_image* image) const { liq_image_destroy(image); }
    void operator()(liq_result* result) const { liq_result_destroy(result); }
    void operator()(ColorMapObject* table) const { GifFreeMapObject(table); }
};

template <typename Type>
using Owned = std::unique_ptr<Type, Release>;

struct ReducedPicture {
    std::vector<GifColorType> colours;
    std::vector<GifByteType> indices;
};

void require(bool holds, const std::filesystem::path& file_name) {
    if (!holds) {
        throw std::runtime_error("cannot write " + file_name.string());
    }
}

ReducedPicture reduce(const QImage& picture) {
    QImage rgba = picture.convertToFormat(QImage::Format_RGBA8888);
    const Owned<liq_attr> attributes(liq_attr_create());
    liq_set_max_colors(attributes.get(), colour_count);
    liq_set_speed(attributes.get(), 1);
    const Owned<liq_image> image(
        liq_image_create_rgba(attributes.get(), rgba.bits(), rgba.width(), rgba.height(), 0));
    liq_result* reduction = nullptr;
    if (!image || liq_image_quantize(image.get(), attributes.get(), &reduction) != LIQ_OK) {
        throw std::runtime_error("the colours cannot be reduced");
    }
    const Owned<liq_result> result(reduction);
    liq_set_dithering_level(result.get(), 0);
    ReducedPicture reduced;
    reduced.indices.resize(static_cast<std::size_t>(rgba.width()) * static_cast<std::size_t>(rgba.height()));
    liq_write_remapped_image(result.get(), image.get(), reduced.indices.data(), reduced.indices.size());
    const liq_palette* const palette = liq_get_palette(result.get());
    for (unsigned entry = 0; entry < palette->count; ++entry) {
        const liq_color& colour = palette->entries[entry];
        reduced.colours.push_back({colour.r, colour.g, colour.b});
    }
    reduced.colours.resize(colour_count);
    return reduced;
}

} // namespace

void save_as_gif(const QImage& picture, const std::filesystem::path& file_name) {
    ReducedPicture reduced = reduce(picture);
    const Owned<ColorMapObject> table(GifMakeMapObject(colour_count, reduced.colours.data()));
    int error = 0;
    GifFileType* const gif = EGifOpenFileName(file_name.c_str(), false, &error);
    require(gif != nullptr, file_name);
    bool is_written =
        EGifPutScreenDesc(gif, picture.width(), picture.height(), 8, 0, table.get()) == GIF_OK &&
        EGifPutImageDesc(gif, 0, 0, picture.width(), picture.height(), false, nullptr) == GIF_OK;
    for (int row = 0; is_written && row < picture.height(); ++row) {
        GifByteType* const first =
            reduced.indices.data() + static_cast<std::ptrdiff_t>(row) * picture.width();
        is_written = EGifPutLine(gif, first, picture.width()) == GIF_OK;
    }
    require((EGifCloseFile(gif, &error) == GIF_OK) && is_written, file_name);
}

} // namespace halvane
