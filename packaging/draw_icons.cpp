// Draws the program's icon in the sizes that a desktop asks for.
// Arguments: the drawing, and the sizes; each becomes a file SIZE.png in the current folder.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char** argv) {
    QSvgRenderer drawing{QString(argc > 1 ? argv[1] : "")};
    if (!drawing.isValid()) return 1;
    for (int i = 2; i < argc; ++i) {
        const QString size = argv[i];
        QImage picture(size.toInt(), size.toInt(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        drawing.render(&painter);
        painter.end();
        if (picture.save(size + ".png")) continue;
        std::fprintf(stderr, "%s.png could not be written\n", argv[i]);
        return 1;
    }
    return 0;
}
