#include "hvqueryroots.h"

#include <QDir>

namespace {
QString appendComponent(const QString& path, const QString& component)
{
    if (path.isEmpty() || path.endsWith(QLatin1Char('/')))
        return path + component;
    return path + QLatin1Char('/') + component;
}

void collectRoots(const HVNode& node, const QString& path, QStringList& roots)
{
    for (const HVNode* child : node.children()) {
        const QString childPath = appendComponent(path, child->name());
        if (child->isFlagged())
            roots.append(childPath); // what lies below is inside this root already
        else
            collectRoots(*child, childPath, roots);
    }
}
} // namespace

namespace HVQueryRoots {

QStringList pathComponents(const QString& path)
{
    const QString clean = QDir::cleanPath(path);
    QStringList components = clean.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    if (clean.startsWith(QLatin1Char('/')))
        components.prepend(QStringLiteral("/"));
    return components;
}

std::unique_ptr<HVNode> treeForFolders(const QStringList& folders)
{
    auto root = std::make_unique<HVNode>(QStringLiteral("root"));
    for (const QString& folder : folders) {
        HVNode* node = root.get();
        for (const QString& component : pathComponents(folder))
            node = node->addChildWithName(component);
        if (node != root.get())
            node->setIsFlagged(true);
    }
    return root;
}

QStringList rootsOfTree(const HVNode& root)
{
    QStringList roots;
    collectRoots(root, QString(), roots);
    return roots;
}

} // namespace HVQueryRoots
