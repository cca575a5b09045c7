// Delivery, de-duplicated registration, removal and the coalescing idle queue. (Observers
// registered for one object, plain duplicate registrations, removal by name and observers
// without the named method are not used by Nimbo; filtering by name and delivering a notification's object
// and user info the catalogue tests show.)
#include "common/hvnotificationcenter.h"
#include "common/notificationnames.h"

#include <QtTest>

class Receiver : public QObject
{
    Q_OBJECT
public:
    int bare = 0;
    Q_INVOKABLE void poke() { ++bare; }
};

class TestNotificationCenter : public QObject
{
    Q_OBJECT
private slots:
    void registeringTwiceDeliversOnceOnlyWithRemoveFirst()
    {
        HVNotificationCenter center;
        Receiver receiver;
        center.addButFirstRemoveObserver(&receiver, "poke", HVNotificationNames::AppIconChanged);
        center.addButFirstRemoveObserver(&receiver, "poke", HVNotificationNames::AppIconChanged);
        center.postNotificationName(HVNotificationNames::AppIconChanged);
        QCOMPARE(receiver.bare, 1);
    }

    void destroyedAndRemovedObserversAreNotCalled()
    {
        HVNotificationCenter center;
        Receiver receiver;
        center.addObserver(&receiver, "poke", HVNotificationNames::ScanPathListChanged);
        // A destroyed observer is forgotten, not called.
        auto* gone = new Receiver;
        center.addObserver(gone, "poke", HVNotificationNames::ScanPathListChanged);
        delete gone;
        center.postNotificationName(HVNotificationNames::ScanPathListChanged);
        QCOMPARE(center.observerCount(), 1);

        center.removeObserver(&receiver);
        center.postNotificationName(HVNotificationNames::ScanPathListChanged);
        QCOMPARE(receiver.bare, 1);
    }

    void coalescedNotificationIsPostedOncePerIdleMoment()
    {
        HVNotificationCenter center;
        Receiver receiver;
        center.addObserver(&receiver, "poke", HVNotificationNames::ScanPathListChanged);
        for (int i = 0; i < 50; ++i)
            center.enqueueCoalescedNotificationName(HVNotificationNames::ScanPathListChanged);
        QTRY_COMPARE(receiver.bare, 1);
        // Once posted, the next one is queued afresh. (That nothing is posted before the event
        // loop is idle, and only once, the catalogue's coalesced rescans after folder edits show.)
        center.enqueueCoalescedNotificationName(HVNotificationNames::ScanPathListChanged);
        QTRY_COMPARE(receiver.bare, 2);
    }
};

QTEST_GUILESS_MAIN(TestNotificationCenter)
#include "tst_notificationcenter.moc"
