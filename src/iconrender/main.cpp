// nimbo-iconrender: draws the scalable application icon at one pixel size into a PNG, so the
// installed hicolor sizes are made from the one SVG at build time.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>

int main(int argc, char* argv[])
{
    QGuiApplication app(argc, argv);
    const QStringList args = QGuiApplication::arguments();
    bool sizeOk = false;
    const int size = args.size() == 4 ? args.at(2).toInt(&sizeOk) : 0;
    if (!sizeOk || size <= 0) {
        QTextStream(stderr) << "usage: nimbo-iconrender ICON.svg SIZE OUT.png\n";
        return 2;
    }
    QSvgRenderer renderer(args.at(1));
    if (!renderer.isValid()) {
        QTextStream(stderr) << "nimbo-iconrender: cannot read " << args.at(1) << "\n";
        return 1;
    }
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    return image.save(args.at(3), "PNG") ? 0 : 1;
}
