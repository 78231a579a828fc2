// SPDX-License-Identifier: MIT
#include "crescent/mapimage.h"
#include "crescent/visibilitymap.h"
#include "fuzz/readinput.h"
#include "fuzz/require.h"

#include <QGuiApplication>
#include <QImage>

namespace {

/// The readers of pictures want an application, without a screen.
void start_application() {
    static int count = 1;
    static char name[] = "panelpictures_fuzz";
    static char* words[] = {name, nullptr};
    static const bool is_set =
        qputenv("QT_QPA_PLATFORM", "offscreen") && qputenv("QT_LOGGING_RULES", "*=false");
    static const QGuiApplication application(count, words);
    halvane::fuzz::require(is_set);
}

} // namespace

/// Whatever stands in the two pictures of the world: the map's is whole and of the map's size or its failure
/// names it; the Qiblah map's is a picture or none.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    start_application();
    halvane::fuzz::read_input("map.gif", data, size, [] {
        const QImage map = halvane::read_map_image();
        halvane::fuzz::require(map.size() == QSize(halvane::map_width, halvane::map_height));
    });
    const QImage qiblah_map = QImage::fromData(data, static_cast<int>(size));
    halvane::fuzz::require(qiblah_map.isNull() || (qiblah_map.width() > 0 && qiblah_map.height() > 0));
    return 0;
}
