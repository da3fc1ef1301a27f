// Writes the program's icon below a folder, laid out as an icon theme: make_icons FOLDER.
#include "main_window/screens/artwork.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr const char* iconName = "orb-kl4-workbench";

/// The path of the icon in `folder`/<size>/apps, a folder that it makes.
QString IconPath(const QString& folder, const QString& size, const char* suffix) {
    const QString apps = folder + QLatin1Char('/') + size + QStringLiteral("/apps");
    QDir().mkpath(apps);
    return apps + QLatin1Char('/') + QLatin1String(iconName) + QLatin1String(suffix);
}

bool WritePicture(const QString& folder, int side) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    orbkl4::PaintEmblem(painter, image.rect());
    painter.end();
    return image.save(IconPath(folder, QStringLiteral("%1x%1").arg(side), ".png"));
}

bool WriteDrawing(const QString& folder) {
    constexpr int side = 256;
    QSvgGenerator drawing;
    drawing.setFileName(IconPath(folder, QStringLiteral("scalable"), ".svg"));
    drawing.setSize(QSize(side, side));
    drawing.setViewBox(QRect(0, 0, side, side));
    drawing.setTitle(QStringLiteral("ORB-KL4 Workbench"));
    QPainter painter;
    if (!painter.begin(&drawing)) return false;
    orbkl4::PaintEmblem(painter, drawing.viewBoxF());
    return painter.end();
}

}  // namespace

int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("make_icons FOLDER\n", stderr);
        return EXIT_FAILURE;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    bool written = true;
    for (const int side : {16, 22, 24, 32, 48, 64, 128, 256, 512})
        written = WritePicture(folder, side) && written;
    return WriteDrawing(folder) && written ? EXIT_SUCCESS : EXIT_FAILURE;
}
