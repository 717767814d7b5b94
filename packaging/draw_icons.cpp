// Draws the program's icon in the sizes that a desktop asks for.
// Arguments: the drawing, a name, and the sizes; each becomes a file NAME-SIZE.png in the current folder.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char** argv) {
    QSvgRenderer drawing{QString(argc > 1 ? argv[1] : "")};
    if (!drawing.isValid()) return 1;
    for (int i = 3; i < argc; ++i) {
        const QString size = argv[i];
        QImage picture(size.toInt(), size.toInt(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        drawing.render(&painter);
        painter.end();
        if (picture.save(QString("%1-%2.png").arg(argv[2], size))) continue;
        std::fprintf(stderr, "%s-%s.png could not be written\n", argv[2], argv[i]);
        return 1;
    }
    return 0;
}
