// What is being dropped on Nimbo, shared by the whole process: the files or URLs of a drag over
// the panel, or those another `nimbo FILE...` handed over. Used as a stack.
#pragma once

#include <QList>
#include <QString>
#include <QUrl>
#include <QVariant>

class DropStack
{
public:
    static DropStack& sharedDropStack();
    DropStack(const DropStack&) = delete;
    DropStack& operator=(const DropStack&) = delete;

    // A list adds each of its elements, a map each of its values; anything else goes by itself.
    void push(const QVariant& object);
    QVariant pop(); // invalid when empty
    QVariant topObject() const;
    // The top as a URL: a URL as it is, a path string as a file URL, otherwise an empty URL.
    QUrl topObjectAsURL() const;
    // Everything held, as URLs (what cannot be one is left out), bottom first.
    QList<QUrl> urls() const;
    void free() { m_heldObjects.clear(); }
    qsizetype count() const { return m_heldObjects.size(); }
    QString description() const;

private:
    DropStack() = default;
    QList<QVariant> m_heldObjects;
};
