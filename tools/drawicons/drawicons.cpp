// SPDX-License-Identifier: MIT
// Renders the application icon to PNG files of the sizes that desktops ask for.

#include <cstdio>

#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

namespace {

QImage rendered(QSvgRenderer& drawing, int side) {
    QImage picture(side, side, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing.render(&painter);
    return picture;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 3) {
        std::fputs("usage: drawicons <icon.svg> <folder of the pictures>\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QString drawing_name = QString::fromLocal8Bit(argv[1]);
    QSvgRenderer drawing(drawing_name);
    if (!drawing.isValid()) {
        std::fprintf(stderr, "drawicons: no drawing in %s\n", argv[1]);
        return 1;
    }
    const QString base = QString::fromLocal8Bit(argv[2]) + '/' + QFileInfo(drawing_name).baseName();
    for (const int side : {48, 128, 256}) {
        const QString picture_name = base + '-' + QString::number(side) + ".png";
        if (!rendered(drawing, side).save(picture_name)) {
            std::fprintf(stderr, "drawicons: cannot write %s\n", qPrintable(picture_name));
            return 1;
        }
    }
    return 0;
}
