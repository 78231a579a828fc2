// SPDX-License-Identifier: MIT
#include "platform/deliveredfonts.h"

#include "stored/programfolder.h"
#include "system/path.h"

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>

namespace halvane {
namespace {

/// Where the desktop's font for panels is not there, the fallback may be of any shape and height.
void replace_missing_font() {
    QFont font = QGuiApplication::font();
    if (QFontInfo(font).family().compare(font.family(), Qt::CaseInsensitive) == 0)
        return;
    font.setFamilies({QStringLiteral("Noto Sans"), QStringLiteral("Noto Sans Arabic")});
    // With widgets this one takes the fonts away that the system has for some of them, such as messages.
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr)
        QApplication::setFont(font);
    else
        QGuiApplication::setFont(font);
}

} // namespace

void use_delivered_fonts() {
    const QDir folder(QString::fromStdString(joined_path(executable_folder(), "fonts")));
    const QFileInfoList fonts = folder.entryInfoList({QStringLiteral("*.ttf")}, QDir::Files, QDir::Name);
    for (const QFileInfo& font : fonts)
        QFontDatabase::addApplicationFont(font.filePath());
    if (!fonts.empty())
        replace_missing_font();
}

} // namespace halvane
