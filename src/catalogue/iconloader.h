// The one queue on which every icon loads: at most eight loads run at once, first queued first
// started, and each result is handed to its record on the main thread before the load ends.
// The loader and its queue live for the whole process.
#pragma once

#include "iconsource.h"

#include <QList>
#include <QMutex>
#include <QObject>
#include <QThreadPool>

#include <atomic>
#include <functional>
#include <memory>

class IconLoadOperation;

class IconLoader
{
public:
    static constexpr int MaxConcurrentLoads = 8;

    // The process's loader, made on first use; there is never a second one.
    static IconLoader* sharedIconLoader();
    IconLoader(const IconLoader&) = delete;
    IconLoader& operator=(const IconLoader&) = delete;

    QThreadPool* queue() { return &m_queue; }

    // Where icons come from. Until a source is set, operations are dropped (a debug line, once) and
    // records keep the icon they have.
    void setIconSource(std::shared_ptr<IconSource> source);
    std::shared_ptr<IconSource> iconSource() const;

    // Queues the operation (the loader owns it from now on).
    void addOperation(IconLoadOperation* operation);

    // Between these (main thread only; they nest), operations are held and then started
    // together, in the order they came: the loads of a whole catalogue then do not compete for
    // the cores with the main thread while it is still queueing them.
    void beginBatch();
    void endBatch();
    // Holds the loader's operations for the life of the object.
    class Batch
    {
    public:
        explicit Batch(IconLoader* loader) : m_loader(loader) { m_loader->beginBatch(); }
        ~Batch() { m_loader->endBatch(); }
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

    private:
        IconLoader* m_loader;
    };

    // Operations queued or running whose result has not yet been handed over.
    int pendingLoads() const { return m_pending.load(); }
    // Runs the main thread's events until every queued icon is handed over or `timeoutMs`
    // passes; true when nothing is pending. Waiting on the queue itself from the main thread
    // would never end, since each load waits for the main thread to take its result.
    bool waitUntilIdle(int timeoutMs);

    // Called by an operation on its worker thread, once per operation: runs `delivery` on the
    // main thread and, when asked to, waits until it has run (or the process is shutting down).
    // The operation counts as handed over after that.
    void deliverOnMainThread(std::function<void()> delivery, bool wait);

private:
    IconLoader();
    ~IconLoader();

    QThreadPool m_queue;
    QObject m_mainThreadContext;
    mutable QMutex m_sourceMutex;
    std::shared_ptr<IconSource> m_source;
    std::atomic<int> m_pending{0};
    std::atomic<bool> m_stopping{false};
    bool m_warnedNoSource = false;
    int m_batchDepth = 0;
    QList<IconLoadOperation*> m_batched;
};
