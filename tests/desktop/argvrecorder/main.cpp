// The desktop tests' stand-in application. It writes its arguments after the first, each
// followed by a NUL byte, to the file named by the first, then shows one window with a red
// icon until it is closed or terminated. With "--no-window" as the first argument it only records.
#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QRasterWindow>

#include <cstring>

int main(int argc, char** argv)
{
    const bool window = argc <= 1 || std::strcmp(argv[1], "--no-window") != 0;
    const int first = window ? 1 : 2;
    if (argc <= first)
        return 2;
    QByteArray recorded;
    for (int i = first + 1; i < argc; ++i)
        recorded.append(argv[i], qsizetype(std::strlen(argv[i]) + 1));
    const QString target = QFile::decodeName(argv[first]);
    QFile file(target + QStringLiteral(".part"));
    if (!file.open(QIODevice::WriteOnly) || file.write(recorded) != recorded.size())
        return 1;
    file.close();
    QFile::remove(target);
    if (!file.rename(target) || !window)
        return 0;

    QGuiApplication app(argc, argv);
    QImage red(32, 32, QImage::Format_ARGB32);
    red.fill(Qt::red);
    QGuiApplication::setWindowIcon(QIcon(QPixmap::fromImage(red)));
    QRasterWindow view;
    view.resize(200, 120);
    view.show();
    return app.exec();
}
