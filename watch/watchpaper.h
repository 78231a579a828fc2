// SPDX-License-Identifier: MIT
#pragma once

#include "watch/crescentwatch.h"
#include "watch/watchpage.h"

#include <string>

namespace halvane {

// A QGuiApplication must be running.

/// The pages of a watch as a PDF file: fonts embedded, texts that can be searched and copied.
/// Error  raises RunTimeFailure when the system has no font for the page's language.
std::string pdf_of(const CrescentWatch& watch, const WatchPage& page);

/// The pages as a PNG picture, one below the other; errors as pdf_of.
/// In     width  least_picture_width to greatest_picture_width                             [pixels]
std::string png_of(const CrescentWatch& watch, const WatchPage& page, int width);

} // namespace halvane
