// The icon browser view: one group of the catalogue as a grid of icons inside the panel. It lays
// the grid out (through HVIconLayout), paints it, follows the pointer, launches on click, filters
// by typed letters, steps letters with the scroll wheel and switches groups on a sideways swipe.
//
// Implemented in several files: set-up and observers (hviconview.cpp), layout
// (hviconview_layout.cpp), painting (hviconview_drawing.cpp, hviconview_cells.cpp), pointer
// (hviconview_mouse.cpp), keys and the filter (hviconview_keys.cpp), the keyboard selection
// (hviconview_navigation.cpp), wheel
// (hviconview_scroll.cpp) and modifier keys (hviconview_modifiers.cpp).
#pragma once

#include "hvfilteredcells.h"
#include "hvgridbands.h"
#include "hviconcache.h"
#include "hvicondragstate.h"
#include "hviconviewappearance.h"
#include "hvlinepainter.h"
#include "hvmodifierkeys.h"
#include "hvscrollaccumulator.h"
#include "hvtypefilter.h"
#include "layout/hviconlayout.h"

#include "catalogue/hvapparray.h"
#include "common/hvnotification.h"

#include <QHash>
#include <QPoint>
#include <QSet>
#include <QWidget>

#include <optional>

class HVAppManager;
class HVIconViewDrag;
class HVUserDefaults;
class QTimer;

class HVIconView : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int groupShown READ groupShown NOTIFY groupShownChanged)
public:
    // Seconds of typing pause after which the next key starts a new filter.
    static constexpr double FilterResetInterval = 1.0;

    HVIconView(HVAppManager* manager, HVUserDefaults* defaults, QWidget* parent = nullptr);
    ~HVIconView() override;

    // Registers the view's preference defaults (once per defaults object is enough).
    static void initialize(HVUserDefaults* defaults);

    // Layout.
    QSizeF viewSize() const;
    QSize sizeHint() const override;
    void setMaxIconViewSize(const QSizeF& size);
    QSizeF maxIconViewSize() const { return m_maxIconViewSize; }
    void setGroupToShow(int group);
    int groupToShow() const { return m_groupToShow; }
    int groupShown() const { return m_groupShown; }
    void updateLayout();
    void resizeViewForced(bool forced);
    bool forceRowColCountForRows(int rows, int cols);
    const HVIconLayout& iconLayout() const { return m_layout; }
    HVAppArray appsShown() const { return m_appsShown; }

    // Cells and apps.
    Coords coordsOfPoint(const QPointF& point) const { return m_layout.coordsOfPoint(point); }
    Coords coordsOfApp(const HVAppRef& app) const;
    HVAppRef appAtCoords(const Coords& coords) const;
    HVAppRef appAtPoint(const QPointF& point) const { return appAtCoords(coordsOfPoint(point)); }
    HVAppRef appAtCell(int row, int column) const;
    QRectF rectOfCoords(const Coords& coords) const { return m_layout.rectOfCoords(coords); }
    QRectF rectOfApp(const HVAppRef& app) const { return rectOfCoords(coordsOfApp(app)); }

    // Painting.
    void setNeedsDisplayForApp(const HVAppRef& app);
    void updateColors();
    const HVIconViewAppearance& appearance() const { return m_look; }
    bool isAppKeyFilteredOut(const HVApp& app) const { return m_filter.filtersOut(app); }
    bool isOpaqueRow(int row, int column) const;
    bool isHighlightedRow(int row, int column) const;
    bool isDecoratedRow(int row, int column) const;
    bool showsIconSpectrums() const { return m_showIconSpectrums; }
    bool isBusyScanning() const { return m_busyScanning; }
    // Set by drag and drop while a drag is over the view.
    void setDragState(const HVIconDragState& state);
    const HVIconDragState& dragState() const { return m_drag; }
    HVIconViewDrag* dragController() const { return m_dragger; }
    Q_INVOKABLE void updateAppIcon(const HVNotification& notification);
    Q_INVOKABLE void showProgressStep(const HVNotification& notification);

    // Selection, pointer and launching.
    Coords selectedCoords() const { return m_selectedCoords; }
    Coords oldSelectedCoords() const { return m_oldSelectedCoords; }
    Coords startCoords() const { return m_startCoords; }
    void selectCoords(const Coords& coords);
    void myMouseMoved(QMouseEvent* event);
    // Launches on a thread of its own, with dropped items or none (nullopt), and hides the panel.
    void launchApp(const HVAppRef& app, const std::optional<QList<QUrl>>& items);
    // Files handed over to be opened: the apps that open them are lit up, a click opens them.
    void offerItemsToOpen(const QList<QUrl>& items);
    void showAppInFinder(const HVAppRef& app);
    // Include and exclude play the poof for `event` when the icon leaves the group shown.
    void includeSelectedApp(const HVAppRef& app, const QEvent* event = nullptr);
    void excludeSelectedApp(const HVAppRef& app, const QEvent* event = nullptr);
    void removeSelectedAppFromUser(const HVAppRef& app);

    // The icon actions (hviconview_actions.cpp), on the app under the pointer.
    void addSelectedAppToUser(const HVAppRef& app);
    void addSelectedAppToUserNewGroup(const HVAppRef& app);
    void showSelectedApp(const HVAppRef& app);
    void hideSelectedApp(const HVAppRef& app);
    void quitSelectedApp(const HVAppRef& app);
    void sendAppForDeletion(const HVAppRef& app);
    void launchEntryAction(const HVAppRef& app, const QString& action);
    // At a left click's release point, else at the selected cell; nothing without an event.
    void showPoofForEvent(const QEvent* event);
    // Pops the contextual menu for the selected cell up at the global point.
    void contextualMenuForEvent(const QPoint& globalPosition);
    HVAppManager* manager() const { return m_manager; }
    HVUserDefaults* defaults() const { return m_defaults; }

    // Keys and type-to-filter.
    bool handleKeyDown(QKeyEvent* event);
    void handleKeyUp(QKeyEvent* event);
    bool performKeyEquivalent(QKeyEvent* event);
    bool handleCancelOperation();
    QString filterSubstring() const { return m_filter.text(); }
    // The apps shown, bunch after bunch, that the filter keeps.
    HVAppBunch keyFilteredApps1D() const;
    void resetFilterSubstring();
    void cancelFilterSubstringTimer();
    void startFilterSubstringTimerWithTimeInterval(double seconds);
    void filterSubstringTimerFired();
    bool isFilterSubstringTimerRunning() const;
    void sendFilterSubstringNotification();
    // The app the arrow keys selected, while the pointer has not moved the selection away.
    HVAppRef keyboardSelectedApp() const;

    // Modifier keys.
    Q_INVOKABLE void modifierKeysChanged(const HVNotification& notification);
    HVModifierKeys modifierKeys() const { return m_keys; }
    void readModifierKeysFromEvent(Qt::KeyboardModifiers modifiers);
    void updateCursor();
    // Ends any drag, clears the modifiers, the filter and the selection, and shows icons again.
    void resetView();

signals:
    void groupShownChanged(int group);
    void appLaunchRequested(HVAppRef app);
    // A message for the user (the remover could not be found or did not start).
    void alertRequested(const QString& message, const QString& informativeText);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    // Drag and drop (hviconviewdrag.cpp does the work).
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    // Keyboard selection (hviconview_navigation.cpp).
    bool handleNavigationKey(QKeyEvent* event);
    void selectAppWithKeyboard(const HVAppRef& app);
    HVAppRef appInNextRow(const HVAppRef& from, int step) const;
    HVAppRef firstAppOfNeighbourBunch(const HVAppRef& from, int step) const;
    void keepKeyboardSelectionInFilter();
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    // Set-up and observers.
    void preferenceChanged(const QString& key, const QVariant& oldValue, const QVariant& newValue);
    void catalogueDidChange(const QStringList& keys);
    void refreshMembershipSets();
    void postSubviewNeedsResizing();

    // Layout.
    void layoutDidChange();
    const QHash<const HVApp*, QPoint>& firstCellOfApps() const;

    // Painting.
    void drawBackground(QPainter& painter, const QRegion& dirty) const;
    void drawScanningText(QPainter& painter) const;
    void drawCellforRow(QPainter& painter, int row, int column);
    void drawIcon(QPainter& painter, const HVApp& app, const QRectF& rect, bool exactRect, double opacity);
    void drawBunchMarks(QPainter& painter, const QRegion& dirty);
    // The cell tests, for the app already looked up (null for an empty cell).
    bool isOpaqueCell(const HVApp* app, int row, int column) const;
    bool isHighlightedCell(const HVApp* app, int row, int column) const;
    bool isDecoratedCell(const HVApp* app, int row, int column) const;
    // The app in a cell, without taking a share of it; null for an empty cell. The first reads
    // the table kept since the last layout, the second works it out from the list laid out.
    const HVApp* appPointerAtCell(int row, int column) const;
    const HVApp* appOfCell(int row, int column) const;
    bool isAppRunning(const HVApp* app) const { return m_runningApps.contains(app); }
    bool isAppExcluded(const HVApp* app) const { return m_excludedApps.contains(app); }
    bool isSelectedCell(int row, int column) const;
    void repaintCell(const Coords& coords);

    // Pointer, keys and wheel.
    void mouseDown(QMouseEvent* event);
    void mouseUp(QMouseEvent* event);
    void rightMouseDown(QMouseEvent* event);
    void scrollWheel(QWheelEvent* event);
    void scrollVertically(double deltaY);
    void scrollHorizontally(double deltaX, quint64 timestamp);
    void changeFilter(bool changed);
    // Marks for repainting just the cells whose fading the filter changed.
    void repaintFilteredCells();
    bool isCellFilteredOut(const HVApp* app, int row, int column) const;

    HVAppManager* m_manager;
    HVUserDefaults* m_defaults;

    int m_groupToShow = 1;
    int m_groupShown = -1;
    HVIconLayoutPreferences m_preferences;
    QSizeF m_maxIconViewSize;
    HVAppArray m_appsShown;
    HVAppBunches m_shownBunches; // the list as laid out, kept until the next layout
    HVIconLayout m_layout;
    bool m_layoutPending = false; // list changes wait while Shift is held
    mutable std::optional<QHash<const HVApp*, QPoint>> m_firstCells;
    std::vector<const HVApp*> m_cellApps; // the app of every cell, row by row
    HVGridBands m_gridBands;
    std::vector<char> m_cellsToPaint; // of the paint event under way

    HVIconViewAppearance m_look;
    HVIconCache m_iconCache;
    HVLinePainter m_linePainter;
    qreal m_paintRatio = 1;           // the device pixel ratio of the paint event under way
    QSet<const HVApp*> m_runningApps; // refreshed whenever their lists change
    QSet<const HVApp*> m_excludedApps;
    bool m_showIconSpectrums = false;
    bool m_busyScanning = false;
    QString m_scanningStep;
    QString m_scanningLabel;
    HVIconDragState m_drag;
    HVIconViewDrag* m_dragger = nullptr;
    QSet<const HVApp*> m_droppableApps; // of m_drag, which holds them

    Coords m_selectedCoords;
    HVAppRef m_keyboardApp;
    Coords m_oldSelectedCoords;
    Coords m_startCoords;
    QPointF m_mouseDownPoint;
    HVModifierKeys m_keys;
    HVModifierKeys m_oldKeys;

    HVTypeFilter m_filter;
    HVFilteredCells m_filteredCells;
    QTimer* m_filterSubstringTimer;
    HVScrollAccumulator m_scrollAccumulatorY{1.0};
};
