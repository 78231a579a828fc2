// SPDX-License-Identifier: MIT
#include "platform/deliveredfonts.h"

#include "stored/programfolder.h"
#include "system/path.h"

#include <QDir>
#include <QFontDatabase>

namespace halvane {

void use_delivered_fonts() {
    const QDir folder(QString::fromStdString(joined_path(executable_folder(), "fonts")));
    for (const QFileInfo& font : folder.entryInfoList({QStringLiteral("*.ttf")}, QDir::Files, QDir::Name))
        QFontDatabase::addApplicationFont(font.filePath());
}

} // namespace halvane
