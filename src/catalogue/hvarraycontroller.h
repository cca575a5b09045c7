// The scan-folder list behind the preferences' folder table: the "searchDirectories"
// preference as a list model of {"path": folder} rows, with the table's selection, adding
// folders, moving and copying rows by dragging, and accepting folders dropped from elsewhere.
// Every change is written to the preference at once.
#pragma once

#include <QAbstractListModel>
#include <QStringList>
#include <QVariantList>

#include <memory>

class DesktopEntryReader;
class HVUserDefaults;
class QMimeData;

class HVArrayController : public QAbstractListModel
{
    Q_OBJECT
public:
    enum DropOperation { DropNone, DropCopy, DropMove };
    struct DropProposal
    {
        int row;
        DropOperation operation;
    };

    inline static const QString SearchDirectoriesKey = QStringLiteral("searchDirectories");
    inline static const QString ScanDirectoriesKey = QStringLiteral("scanDirectories");
    inline static const QString MovedRowsType = QStringLiteral("MOVED_ROWS_TYPE");
    inline static const QString CopiedRowsType = QStringLiteral("COPIED_ROWS_TYPE");

    // The reader decides which dropped files count as applications (null: every entry file).
    explicit HVArrayController(HVUserDefaults* defaults = nullptr,
                               std::shared_ptr<DesktopEntryReader> reader = {}, QObject* parent = nullptr);

    // The platform's application folders, user's first, then each system data folder's, with
    // the home folder written as "~".
    static QVariantList defaultSearchDirectories();
    // Registers that default (once per defaults object) and moves a non-empty old
    // "scanDirectories" list of paths into "searchDirectories", removing the old key.
    static void initialize(HVUserDefaults* defaults);
    // A folder path with "~" expanded and links resolved (cleaned when it does not exist).
    static QString resolvedPath(const QString& path);

    QVariantList arrangedObjects() const;
    QStringList paths() const;
    QList<int> selectionIndexes() const { return m_selection; }
    void setSelectionIndexes(const QList<int>& rows);

    // Each path resolved and written with "~"; paths already in the list are skipped; the
    // others go in at index, one after the other, and become the selection.
    void insertPaths(const QStringList& paths, int index);
    void removeSelectedObjects();
    // The add button's folder panel closed: on confirmation (1) the chosen folders go in
    // after the selected row (at the top with no selection).
    void openPanelDidEnd(const QStringList& fileNames, int returnCode);
    // Moves the rows to the insertion point, keeping their order.
    void moveObjectsInArrangedObjectsFromIndexes(const QList<int>& indexes, int insertIndex);

    // Dragging rows: their numbers (MOVED_ROWS_TYPE) and their dictionaries (COPIED_ROWS_TYPE).
    QMimeData* mimeDataForRows(const QList<int>& rows) const;
    // A drop always goes above the row after the proposed one: copy when Option is held in
    // an internal drag, move for an internal drag without it, copy from elsewhere.
    static DropProposal validateDrop(int proposedRow, bool internal, bool optionHeld);
    // Carries out a drop at the (validated) row; false when nothing changed.
    bool acceptDrop(const QMimeData* data, int row, bool internal, bool optionHeld);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    Qt::DropActions supportedDropActions() const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

signals:
    void selectionChanged();

private:
    void store(const QVariantList& objects);
    void preferenceChanged(const QString& key);

    HVUserDefaults* m_defaults;
    std::shared_ptr<DesktopEntryReader> m_reader;
    QList<int> m_selection;
    bool m_storing = false;
};
