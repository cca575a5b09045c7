// The live query: inotify on the scan folders and their folders down to the recursion depth.
// It reports entry files ("*.desktop") added, removed or changed, and folders appearing or
// going away; folders that appear are watched at once and the entry files already inside
// them are reported as added. A scan folder that does not exist yet is waited for.
#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>
#include <QStringList>

class QSocketNotifier;

struct HVEntryChange
{
    enum Kind { Added, Removed, Changed, Overflow }; // Overflow: events were lost
    QString path;
    Kind kind = Changed;
    bool isFolder = false;

    bool operator==(const HVEntryChange&) const = default;
};

class HVEntryWatcher : public QObject
{
    Q_OBJECT
public:
    explicit HVEntryWatcher(QObject* parent = nullptr);
    ~HVEntryWatcher() override;

    // Watches each scan folder and, below it, the folders the scan walks (real, not hidden, not
    // ending in ".framework", at most maxDepth levels counting the scan folder as 1; a scan
    // folder inside another counts from 1 again). False when inotify cannot be used.
    bool watch(const QStringList& scanFolders, qint64 maxDepth);
    // Watches more or fewer levels from now on.
    void setMaxDepth(qint64 maxDepth);

    QStringList watchedFolders() const;

signals:
    // One batch per read of the event queue.
    void entriesChanged(const QList<HVEntryChange>& changes);

private:
    struct Folder
    {
        QString path;
        qint64 level;
    };
    void readEvents();
    void handleEvent(int wd, quint32 mask, const QString& name, QList<HVEntryChange>& changes);
    void folderAppeared(const Folder& parent, const QString& path, QList<HVEntryChange>& changes);
    void watchTree(const QString& folder, qint64 level, QList<HVEntryChange>* found);
    void forgetTree(const QString& folder);
    void forgetWatch(int wd);
    void waitForFolder(const QString& folder);
    void retryMissingFolders(QList<HVEntryChange>& changes);
    void rewatchAll();

    int m_fd = -1;
    QSocketNotifier* m_notifier = nullptr;
    QStringList m_scanFolderList;
    QSet<QString> m_scanFolders;
    qint64 m_maxDepth = 1;
    QHash<int, Folder> m_folders;    // watch descriptor -> watched folder
    QHash<QString, int> m_watches;   // watched folder -> watch descriptor
    QHash<int, QString> m_waitingAt; // watch descriptor -> existing ancestor of a missing scan folder
    QStringList m_missing;           // scan folders that do not exist (yet)
    bool m_warnedAboutLimit = false;
};
