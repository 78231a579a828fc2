// SPDX-License-Identifier: MIT
#pragma once

#include "tools/drawmap/worldlines.h"

#include <QImage>

namespace halvane {

/// The main routine of a program with two arguments, the folder of the world's lines and the GIF file to
/// write. Returns the exit status: 0, 1 for a failure told on the standard error output, 2 for other
/// arguments.
int draw_world_picture(int argc, char* argv[], QImage (*draw)(const WorldLines& world));

} // namespace halvane
