// The data a favourite carries while dragged: data that is damaged or made by another process is
// refused rather than trusted. (That it comes back as it went is seen in tst_organising, where
// real drags move favourites by the path they carry.)
#include "browser/hvdragpayload.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QIODevice>
#include <QVariantMap>
#include <QtTest>

namespace {
QByteArray stream(const QString& name, const QVariantMap& dict)
{
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_6_0);
    out << name << dict;
    return data;
}
} // namespace

class TestDragPayload : public QObject
{
    Q_OBJECT
private slots:
    void foreignOrDamagedDataIsRefused()
    {
        const qint64 pid = QCoreApplication::applicationPid();
        const QVariantMap good{
            {"_app", "/a.desktop"}, {"_group", 8}, {"_bunch", 0}, {"_index", 0}, {"_pid", pid}};
        QVariantMap otherProcess = good;
        otherProcess["_pid"] = pid + 1;
        QVariantMap noApp = good;
        noApp.remove("_app");
        QVariantMap listAsGroup = good;
        listAsGroup["_group"] = QStringList{"8"};
        const QByteArray whole = HVDragPayload().encoded();
        QByteArray hugeList = stream("ivDict", {}).chopped(4);
        QDataStream(&hugeList, QIODevice::Append)
            << quint32(1) << QStringLiteral("_app") << quint32(QMetaType::QVariantList) << qint8(0)
            << quint32(0xffffffff);
        const struct
        {
            const char* name;
            QByteArray data;
        } cases[] = {
            {"cut short", whole.left(whole.size() / 2)},
            {"another process", stream("ivDict", otherProcess)},
            {"another dictionary", stream("other", good)},
            {"no app", stream("ivDict", noApp)},
            {"a value of a type the payload never holds", stream("ivDict", listAsGroup)},
            {"a list claiming four billion values", hugeList},
        };
        QVERIFY(HVDragPayload::decoded(stream("ivDict", good)));
        for (const auto& c : cases) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Refusing a dragged app"));
            QVERIFY2(!HVDragPayload::decoded(c.data), c.name);
        }
    }
};

QTEST_GUILESS_MAIN(TestDragPayload)
#include "tst_dragpayload.moc"
