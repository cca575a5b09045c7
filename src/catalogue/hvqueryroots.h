// The live query's roots: the scan folders reduced to those that lie inside no other one.
#pragma once

#include "hvnode.h"

#include <QStringList>

#include <memory>

namespace HVQueryRoots {
// A tree whose root is named "root", one node per path component ("/" first for an absolute
// path), the last node of every folder flagged.
std::unique_ptr<HVNode> treeForFolders(const QStringList& folders);
// Depth first in child order, the path of every flagged node without a flagged ancestor.
QStringList rootsOfTree(const HVNode& root);
// The components of a path as the tree holds them: "/usr/share" gives "/", "usr", "share".
QStringList pathComponents(const QString& path);
} // namespace HVQueryRoots
