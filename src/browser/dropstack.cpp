#include "dropstack.h"

#include <QDebug>

namespace {
QUrl asURL(const QVariant& object)
{
    if (object.metaType().id() == QMetaType::QUrl)
        return object.toUrl();
    if (object.metaType().id() == QMetaType::QString)
        return QUrl::fromLocalFile(object.toString());
    return {};
}
} // namespace

DropStack& DropStack::sharedDropStack()
{
    static DropStack stack;
    return stack;
}

void DropStack::push(const QVariant& object)
{
    if (object.metaType().id() == QMetaType::QVariantList ||
        object.metaType().id() == QMetaType::QStringList) {
        m_heldObjects.append(object.toList());
    } else if (object.metaType().id() == QMetaType::QVariantMap) {
        m_heldObjects.append(object.toMap().values());
    } else if (object.canConvert<QList<QUrl>>() && object.metaType() == QMetaType::fromType<QList<QUrl>>()) {
        for (const QUrl& url : object.value<QList<QUrl>>())
            m_heldObjects.append(url);
    } else {
        m_heldObjects.append(object);
    }
}

QVariant DropStack::pop()
{
    return m_heldObjects.isEmpty() ? QVariant() : m_heldObjects.takeLast();
}

QVariant DropStack::topObject() const
{
    return m_heldObjects.isEmpty() ? QVariant() : m_heldObjects.constLast();
}

QUrl DropStack::topObjectAsURL() const
{
    return asURL(topObject());
}

QList<QUrl> DropStack::urls() const
{
    QList<QUrl> urls;
    for (const QVariant& object : m_heldObjects) {
        if (const QUrl url = asURL(object); !url.isEmpty())
            urls.append(url);
    }
    return urls;
}

QString DropStack::description() const
{
    QString text;
    QDebug(&text) << m_heldObjects;
    return text;
}
