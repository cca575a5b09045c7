#include "hvnode.h"

HVNode::HVNode(const QString& name, HVNode* parent) : m_name(name), m_parent(parent) {}

QList<HVNode*> HVNode::children() const
{
    QList<HVNode*> list;
    if (m_children) {
        for (const auto& child : *m_children)
            list.append(child.get());
    }
    return list;
}

HVNode* HVNode::addChildWithName(const QString& name)
{
    if (name.isEmpty())
        return nullptr;
    if (!m_children)
        m_children = std::make_unique<std::vector<std::unique_ptr<HVNode>>>();
    for (const auto& child : *m_children) {
        if (child->m_name == name)
            return child.get();
    }
    m_children->push_back(std::make_unique<HVNode>(name, this));
    return m_children->back().get();
}
