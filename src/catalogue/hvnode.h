// A small tree of named nodes. The catalogue builds one from the scan folders' path
// components to find the live query's roots: the folders that lie inside no other scan folder.
#pragma once

#include <QList>
#include <QString>

#include <memory>
#include <vector>

class HVNode
{
public:
    explicit HVNode(const QString& name, HVNode* parent = nullptr);
    HVNode(const HVNode&) = delete;
    HVNode& operator=(const HVNode&) = delete;

    QString name() const { return m_name; }
    HVNode* parent() const { return m_parent; }
    bool isRoot() const { return !m_parent; }
    bool isLeaf() const { return !m_children || m_children->empty(); }
    // In the order they were added; the parent owns them.
    QList<HVNode*> children() const;

    // Null for an empty name; otherwise the child of that name, added when there is none yet.
    HVNode* addChildWithName(const QString& name);

    bool isFlagged() const { return m_isFlagged; }
    void setIsFlagged(bool flagged) { m_isFlagged = flagged; }

    // Nodes are equal when their names are.
    bool isEqual(const HVNode& other) const { return m_name == other.m_name; }
    size_t hash() const { return qHash(m_name); }

private:
    QString m_name;
    HVNode* m_parent;
    std::unique_ptr<std::vector<std::unique_ptr<HVNode>>> m_children; // made with the first child
    bool m_isFlagged = false;
};
