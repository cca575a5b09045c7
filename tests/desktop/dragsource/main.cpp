// The desktop tests' drag source: another program, as a file manager would be. It shows a small
// window at the screen's top left, prints "ready X Y" (the window's centre) once it is shown, and
// when pressed there drags its arguments, taken as encoded URLs exactly as given, as a
// text/uri-list, and quits once the drop has ended.
#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QRasterWindow>
#include <QTimer>

#include <cstdio>

class DragSource : public QRasterWindow
{
public:
    explicit DragSource(QByteArray uriList) : m_uriList(std::move(uriList)) {}

protected:
    void exposeEvent(QExposeEvent* event) override
    {
        QRasterWindow::exposeEvent(event);
        if (m_announced || !isExposed())
            return;
        m_announced = true;
        const QPoint centre = mapToGlobal(QPoint(width() / 2, height() / 2));
        std::printf("ready %d %d\n", centre.x(), centre.y());
        std::fflush(stdout);
    }

    void mousePressEvent(QMouseEvent*) override
    {
        auto* data = new QMimeData;
        data->setData(QStringLiteral("text/uri-list"), m_uriList);
        auto* drag = new QDrag(this);
        drag->setMimeData(data);
        drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction);
        QTimer::singleShot(0, qApp, &QGuiApplication::quit);
    }

private:
    QByteArray m_uriList;
    bool m_announced = false;
};

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    QByteArray uriList;
    for (int i = 1; i < argc; ++i)
        uriList += QByteArray(argv[i]) + "\r\n";
    DragSource source(uriList);
    source.setGeometry(10, 10, 120, 90);
    source.show();
    return app.exec();
}
