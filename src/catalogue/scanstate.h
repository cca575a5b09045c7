// What the catalogue keeps while it scans: the scan folders of the walk under way, the
// recursion depth, which entry holds each desktop ID, the live watcher and the delayed full
// scan.
#pragma once

#include "hvdesktopidclaims.h"
#include "hventrywatcher.h"
#include "hvnode.h"

#include <QSet>
#include <QString>
#include <QTimer>

#include <memory>

struct HVScanState
{
    qint64 depth = 0;             // folder level of the walk under way; 0 between walks
    qint64 maxRecursionDepth = 4; // 1...99
    bool isBusyScanning = false;

    // The walk under way: every scan folder (one inside another is walked on its own), the
    // one being walked and its position, and the desktop IDs claimed so far.
    QSet<QString> scanFolders;
    QString currentScanFolder;
    int currentFolderIndex = 0;
    bool scanningAllFolders = false;
    HVDesktopIdClaims claims;

    std::unique_ptr<HVNode> spotlightTreeRoot;
    std::unique_ptr<HVEntryWatcher> query;
    std::unique_ptr<QTimer> fullScanTimer;
};
