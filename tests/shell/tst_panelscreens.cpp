// With two monitors the panel opens on the one holding the pointer, or on the main one when the
// user turned that off. Qt's offscreen platform stands in for two monitors side by side.
#include "support/testenvironment.h"

#include "browser/hviconview.h"
#include "catalogue/hvappmanager.h"
#include "common/hvuserdefaults.h"
#include "shell/hvwindow.h"

#include <QApplication>
#include <QScreen>
#include <QTemporaryFile>
#include <QtTest>

class TestPanelScreens : public QObject
{
    Q_OBJECT
private slots:
    void panelOpensWhereThePointerIs()
    {
        QCOMPARE(QGuiApplication::screens().size(), 2);
        const QRect left = QGuiApplication::screens().at(0)->geometry();
        const QRect right = QGuiApplication::screens().at(1)->geometry();
        TestEnvironment env;
        HVUserDefaults defaults(env.configHome() + "/Nimbo/Nimbo.conf");
        HVAppManager manager(&defaults);
        HVWindow window(new HVIconView(&manager, &defaults), &defaults);

        const std::tuple<bool, QPoint, QRect> cases[] = {{true, left.topLeft() + QPoint(5, 5), left},
                                                         {true, right.bottomRight() - QPoint(5, 5), right},
                                                         {false, right.center(), left}};
        for (const auto& [followPointer, pointer, expected] : cases) {
            defaults.setBool(followPointer, "openOnPointerScreen");
            QCursor::setPos(pointer);
            window.showPanel();
            QVERIFY2(expected.contains(window.geometry()),
                     qPrintable(QString("pointer at %1,%2").arg(pointer.x()).arg(pointer.y())));
            QVERIFY(window.availableGeometry() == QRectF(expected));
            window.hidePanel();
            QTRY_VERIFY(!window.isVisible());
        }
    }
};

int main(int argc, char** argv)
{
    QTemporaryFile screens;
    if (!screens.open())
        return 1;
    screens.write(R"({"screens": [{"name": "left", "x": 0, "y": 0, "width": 1000, "height": 700},
                     {"name": "right", "x": 1000, "y": 0, "width": 1280, "height": 800}]})");
    screens.flush();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toUtf8());
    QApplication app(argc, argv);
    TestPanelScreens test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_panelscreens.moc"
