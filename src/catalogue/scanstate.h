// What the catalogue keeps while it scans: scan folders, the recursion depth, the live
// watcher and the delayed full scan.
#pragma once

#include <QtGlobal>

struct HVScanState
{
    qint64 depth = 0;
    qint64 maxRecursionDepth = 4;
    bool isBusyScanning = false;
};
