// What a screen reader sees of the icon view: a list whose items are the apps shown, each with
// its name, its place on screen, and whether it is the selected one; the view announces the
// selection as it moves.
#pragma once

#include <QAccessibleWidget>
#include <QHash>

#include <memory>

class HVApp;
class HVIconView;

class HVIconViewAccessible : public QAccessibleWidget
{
public:
    explicit HVIconViewAccessible(HVIconView* view);
    ~HVIconViewAccessible() override;

    // Installed once; answers for every icon view.
    static QAccessibleInterface* factory(const QString& className, QObject* object);
    // Tells assistive technology, when one listens, that the view selected this app.
    static void selectionMoved(HVIconView* view, const std::shared_ptr<HVApp>& app);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

    HVIconView* view() const;

private:
    mutable QHash<const HVApp*, QAccessible::Id> m_items;
};
