#include "iconloader.h"

#include "iconloadoperation.h"
#include "iconlogging.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QSemaphore>
#include <QThread>

#include <QtDebug>
#include <utility>

IconLoader* IconLoader::sharedIconLoader()
{
    // Made once, under the lock the language keeps for function statics.
    static IconLoader loader;
    return &loader;
}

IconLoader::IconLoader()
{
    m_queue.setMaxThreadCount(MaxConcurrentLoads);
    // Deliveries run in the main thread's event loop.
    if (QCoreApplication* app = QCoreApplication::instance())
        m_mainThreadContext.moveToThread(app->thread());
}

IconLoader::~IconLoader()
{
    // At exit: loads that wait for a main thread that no longer runs give up their results.
    m_stopping = true;
    m_queue.clear();
    m_queue.waitForDone();
}

void IconLoader::setIconSource(std::shared_ptr<IconSource> source)
{
    QMutexLocker locker(&m_sourceMutex);
    m_source = std::move(source);
    m_warnedNoSource = false;
}

std::shared_ptr<IconSource> IconLoader::iconSource() const
{
    QMutexLocker locker(&m_sourceMutex);
    return m_source;
}

void IconLoader::addOperation(IconLoadOperation* operation)
{
    if (!operation)
        return;
    {
        QMutexLocker locker(&m_sourceMutex);
        if (!m_source) {
            // Headless tools (nimboctl scan) fill catalogues without ever showing an icon.
            if (!m_warnedNoSource)
                qCDebug(lcIconLoading, "No icon source is set: icons are not loaded");
            m_warnedNoSource = true;
            delete operation;
            return;
        }
    }
    ++m_pending;
    operation->setAutoDelete(true);
    if (m_batchDepth > 0)
        m_batched.append(operation);
    else
        m_queue.start(operation);
}

void IconLoader::beginBatch()
{
    ++m_batchDepth;
}

void IconLoader::endBatch()
{
    if (m_batchDepth == 0 || --m_batchDepth > 0)
        return;
    const QList<IconLoadOperation*> batched = std::exchange(m_batched, {});
    for (IconLoadOperation* operation : batched)
        m_queue.start(operation);
}

bool IconLoader::waitUntilIdle(int timeoutMs)
{
    QDeadlineTimer deadline(timeoutMs);
    while (m_pending.load() > 0 && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        if (m_pending.load() > 0)
            QThread::msleep(1);
    }
    QCoreApplication::processEvents();
    return m_pending.load() == 0;
}

void IconLoader::deliverOnMainThread(std::function<void()> delivery, bool wait)
{
    auto done = std::make_shared<QSemaphore>();
    QMetaObject::invokeMethod(
        &m_mainThreadContext,
        [this, delivery = std::move(delivery), done, wait] {
            delivery();
            if (!wait)
                --m_pending;
            done->release();
        },
        Qt::QueuedConnection);
    if (!wait)
        return;
    while (!done->tryAcquire(1, 50)) {
        if (m_stopping.load() || !QCoreApplication::instance())
            break;
    }
    --m_pending;
}
