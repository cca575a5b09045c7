#include "hviconviewaccessible.h"

#include "hviconview.h"

#include <QPointer>

namespace {
// One icon: its app's name, the cell's rectangle on screen, selected while the view selects it.
class HVIconAccessible : public QAccessibleInterface
{
public:
    HVIconAccessible(HVIconView* view, const HVAppRef& app) : m_view(view), m_app(app) {}

    bool isValid() const override { return m_view && !m_app.expired(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return m_view ? m_view->window()->windowHandle() : nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(m_view); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* focusChild() const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    void setText(QAccessible::Text, const QString&) override {}

    QString text(QAccessible::Text type) const override
    {
        const HVAppRef app = m_app.lock();
        if (!app)
            return QString();
        if (type == QAccessible::Name)
            return app->name();
        if (type == QAccessible::Description && m_view && m_view->isAppKeyFilteredOut(*app))
            return QObject::tr("Not matching the typed text");
        return QString();
    }

    QRect rect() const override
    {
        const HVAppRef app = m_app.lock();
        if (!app || !m_view)
            return QRect();
        const QRect local = m_view->rectOfApp(app).toAlignedRect();
        return QRect(m_view->mapToGlobal(local.topLeft()), local.size());
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.selectable = true;
        state.focusable = true;
        const HVAppRef app = m_app.lock();
        if (!app || !m_view)
            return state;
        state.invisible = !m_view->coordsOfApp(app).hasCell();
        const bool selected = m_view->appAtCoords(m_view->selectedCoords()) == app;
        state.selected = selected;
        state.focused = selected && m_view->hasFocus();
        return state;
    }

    HVAppRef app() const { return m_app.lock(); }

private:
    QPointer<HVIconView> m_view;
    std::weak_ptr<HVApp> m_app;
};

HVAppBunch appsInOrder(const HVIconView* view)
{
    HVAppBunch apps;
    for (const HVAppRef& app : view->appsShown().allApps())
        apps.append(app);
    return apps;
}
} // namespace

HVIconViewAccessible::HVIconViewAccessible(HVIconView* view) : QAccessibleWidget(view, QAccessible::List) {}

HVIconViewAccessible::~HVIconViewAccessible()
{
    for (QAccessible::Id id : std::as_const(m_items))
        QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface* HVIconViewAccessible::factory(const QString& className, QObject* object)
{
    if (className == QLatin1String("HVIconView") && object && object->isWidgetType())
        return new HVIconViewAccessible(static_cast<HVIconView*>(object));
    return nullptr;
}

void HVIconViewAccessible::selectionMoved(HVIconView* view, const HVAppRef& app)
{
    if (!QAccessible::isActive() || !app)
        return;
    const int index = int(appsInOrder(view).indexOf(app));
    if (index < 0)
        return;
    QAccessibleEvent focus(view, QAccessible::Focus);
    focus.setChild(index);
    QAccessible::updateAccessibility(&focus);
    QAccessibleEvent selection(view, QAccessible::Selection);
    selection.setChild(index);
    QAccessible::updateAccessibility(&selection);
}

HVIconView* HVIconViewAccessible::view() const
{
    return static_cast<HVIconView*>(widget());
}

int HVIconViewAccessible::childCount() const
{
    return int(appsInOrder(view()).size());
}

QAccessibleInterface* HVIconViewAccessible::child(int index) const
{
    const HVAppBunch apps = appsInOrder(view());
    if (index < 0 || index >= apps.size())
        return nullptr;
    const HVAppRef& app = apps.at(index);
    auto found = m_items.constFind(app.get());
    if (found != m_items.constEnd()) {
        auto* item = static_cast<HVIconAccessible*>(QAccessible::accessibleInterface(*found));
        if (item && item->app() == app)
            return item;
        QAccessible::deleteAccessibleInterface(*found);
    }
    auto* item = new HVIconAccessible(view(), app);
    m_items.insert(app.get(), QAccessible::registerAccessibleInterface(item));
    return item;
}

int HVIconViewAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* item = dynamic_cast<const HVIconAccessible*>(child);
    if (!item)
        return -1;
    const HVAppRef app = item->app();
    return app ? int(appsInOrder(view()).indexOf(app)) : -1;
}

QAccessibleInterface* HVIconViewAccessible::childAt(int x, int y) const
{
    const HVAppRef app = view()->appAtPoint(view()->mapFromGlobal(QPoint(x, y)));
    return app ? child(int(appsInOrder(view()).indexOf(app))) : nullptr;
}

QAccessibleInterface* HVIconViewAccessible::focusChild() const
{
    const HVAppRef app = view()->appAtCoords(view()->selectedCoords());
    return app ? child(int(appsInOrder(view()).indexOf(app))) : nullptr;
}
