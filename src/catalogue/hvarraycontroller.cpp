#include "hvarraycontroller.h"

#include "hvapp.h"
#include "hvitemclassifier.h"

#include "common/hvuserdefaults.h"
#include "common/xdgpaths.h"

#include <QDataStream>
#include <QDir>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace {
const QString PathKey = QStringLiteral("path");

QVariantMap rowFor(const QString& path)
{
    return {{PathKey, path}};
}

QList<int> rowsFrom(const QByteArray& bytes)
{
    QList<int> rows;
    QDataStream stream(bytes);
    stream >> rows;
    return stream.status() == QDataStream::Ok ? rows : QList<int>();
}

QVariantList dictionariesFrom(const QByteArray& bytes)
{
    QVariantList dictionaries;
    QDataStream stream(bytes);
    stream >> dictionaries;
    if (stream.status() != QDataStream::Ok)
        return {};
    // Only well-formed rows come in.
    dictionaries.removeIf(
        [](const QVariant& row) { return row.toMap().value(PathKey).toString().isEmpty(); });
    return dictionaries;
}
} // namespace

HVArrayController::HVArrayController(HVUserDefaults* defaults, std::shared_ptr<DesktopEntryReader> reader,
                                     QObject* parent)
    : QAbstractListModel(parent), m_defaults(defaults ? defaults : HVUserDefaults::standardUserDefaults()),
      m_reader(std::move(reader))
{
    initialize(m_defaults);
    connect(m_defaults, &HVUserDefaults::valueChanged, this,
            [this](const QString& key) { preferenceChanged(key); });
}

QVariantList HVArrayController::defaultSearchDirectories()
{
    QVariantList folders{
        rowFor(XdgPaths::abbreviateHome(XdgPaths::dataHome() + QStringLiteral("/applications")))};
    for (const QString& dir : XdgPaths::dataDirs())
        folders.append(rowFor(XdgPaths::abbreviateHome(dir + QStringLiteral("/applications"))));
    return folders;
}

void HVArrayController::initialize(HVUserDefaults* defaults)
{
    if (!defaults)
        return;
    if (!defaults->registeredDefaults().contains(SearchDirectoriesKey))
        defaults->registerDefaults({{SearchDirectoriesKey, defaultSearchDirectories()}});
    const QVariantList old = defaults->arrayForKey(ScanDirectoriesKey);
    if (old.isEmpty())
        return;
    QVariantList folders;
    for (const QVariant& path : old) {
        if (path.metaType().id() == QMetaType::QString && !path.toString().isEmpty())
            folders.append(rowFor(path.toString()));
    }
    defaults->setObject(folders, SearchDirectoriesKey);
    defaults->removeObjectForKey(ScanDirectoriesKey);
}

QString HVArrayController::resolvedPath(const QString& path)
{
    const QString expanded = XdgPaths::expandHome(path);
    const QString canonical = QFileInfo(expanded).canonicalFilePath();
    return canonical.isEmpty() ? QDir::cleanPath(expanded) : canonical;
}

QVariantList HVArrayController::arrangedObjects() const
{
    return m_defaults->arrayForKey(SearchDirectoriesKey);
}

QStringList HVArrayController::paths() const
{
    QStringList paths;
    for (const QVariant& row : arrangedObjects())
        paths.append(row.toMap().value(PathKey).toString());
    return paths;
}

void HVArrayController::setSelectionIndexes(const QList<int>& rows)
{
    QList<int> selection;
    const int count = rowCount();
    for (int row : rows) {
        if (row >= 0 && row < count && !selection.contains(row))
            selection.append(row);
    }
    std::sort(selection.begin(), selection.end());
    if (selection == m_selection)
        return;
    m_selection = selection;
    emit selectionChanged();
}

void HVArrayController::store(const QVariantList& objects)
{
    beginResetModel();
    m_storing = true;
    m_defaults->setObject(objects, SearchDirectoriesKey);
    m_storing = false;
    endResetModel();
}

void HVArrayController::preferenceChanged(const QString& key)
{
    if (key != SearchDirectoriesKey || m_storing)
        return;
    beginResetModel();
    endResetModel();
    setSelectionIndexes(m_selection); // drops rows that no longer exist
}

void HVArrayController::insertPaths(const QStringList& paths, int index)
{
    QVariantList objects = arrangedObjects();
    QStringList present = this->paths();
    index = std::clamp(index, 0, int(objects.size()));
    QList<int> inserted;
    for (const QString& path : paths) {
        const QString folder = XdgPaths::abbreviateHome(resolvedPath(path));
        if (path.isEmpty() || present.contains(folder))
            continue;
        objects.insert(index, rowFor(folder));
        present.insert(index, folder);
        inserted.append(index++);
    }
    if (inserted.isEmpty())
        return;
    store(objects);
    setSelectionIndexes(inserted);
}

void HVArrayController::removeSelectedObjects()
{
    if (m_selection.isEmpty())
        return;
    QVariantList objects = arrangedObjects();
    for (auto row = m_selection.crbegin(); row != m_selection.crend(); ++row)
        objects.removeAt(*row);
    m_selection.clear();
    store(objects);
    emit selectionChanged();
}

void HVArrayController::openPanelDidEnd(const QStringList& fileNames, int returnCode)
{
    if (returnCode != 1)
        return;
    insertPaths(fileNames, m_selection.isEmpty() ? 0 : m_selection.first() + 1);
}

void HVArrayController::moveObjectsInArrangedObjectsFromIndexes(const QList<int>& indexes, int insertIndex)
{
    QVariantList objects = arrangedObjects();
    QList<int> moved;
    for (int index : indexes) {
        if (index >= 0 && index < objects.size() && !moved.contains(index))
            moved.append(index);
    }
    if (moved.isEmpty())
        return;
    std::sort(moved.begin(), moved.end());
    insertIndex = std::clamp(insertIndex, 0, int(objects.size()));
    // From the highest row down: a row at or after the insertion point has been pushed on by
    // the rows already put in front of it; a row before it pulls the insertion point back.
    int aboveInsertIndexCount = 0;
    for (auto index = moved.crbegin(); index != moved.crend(); ++index) {
        int removeIndex = *index;
        if (*index >= insertIndex) {
            removeIndex = *index + aboveInsertIndexCount;
            ++aboveInsertIndexCount;
        } else {
            --insertIndex;
        }
        const QVariant object = objects.takeAt(removeIndex);
        objects.insert(insertIndex, object);
    }
    store(objects);
}

QMimeData* HVArrayController::mimeDataForRows(const QList<int>& rows) const
{
    const QVariantList objects = arrangedObjects();
    QList<int> numbers;
    QVariantList dictionaries;
    for (int row : rows) {
        if (row >= 0 && row < objects.size()) {
            numbers.append(row);
            dictionaries.append(objects.at(row));
        }
    }
    QByteArray rowBytes;
    QByteArray dictionaryBytes;
    QDataStream rowStream(&rowBytes, QIODevice::WriteOnly);
    rowStream << numbers;
    QDataStream dictionaryStream(&dictionaryBytes, QIODevice::WriteOnly);
    dictionaryStream << dictionaries;
    auto* data = new QMimeData;
    data->setData(MovedRowsType, rowBytes);
    data->setData(CopiedRowsType, dictionaryBytes);
    return data;
}

HVArrayController::DropProposal HVArrayController::validateDrop(int proposedRow, bool internal,
                                                                bool optionHeld)
{
    return {proposedRow + 1, internal && !optionHeld ? DropMove : DropCopy};
}

bool HVArrayController::acceptDrop(const QMimeData* data, int row, bool internal, bool optionHeld)
{
    if (!data)
        return false;
    row = std::max(row, 0);
    if (internal && optionHeld) {
        const QVariantList copies = dictionariesFrom(data->data(CopiedRowsType));
        if (copies.isEmpty())
            return false;
        QVariantList objects = arrangedObjects();
        row = std::min(row, int(objects.size()));
        QList<int> inserted;
        for (const QVariant& copy : copies) {
            objects.insert(row + int(inserted.size()), copy);
            inserted.append(row + int(inserted.size()));
        }
        store(objects);
        setSelectionIndexes(inserted);
        return true;
    }
    if (internal) {
        const QList<int> rows = rowsFrom(data->data(MovedRowsType));
        if (rows.isEmpty())
            return false;
        const int above = int(std::count_if(rows.begin(), rows.end(), [row](int r) { return r < row; }));
        moveObjectsInArrangedObjectsFromIndexes(rows, row);
        QList<int> selection;
        for (int i = 0; i < rows.size(); ++i)
            selection.append(row - above + i);
        setSelectionIndexes(selection);
        return true;
    }
    // Files from elsewhere: folders and applications are kept.
    QStringList kept;
    for (const QUrl& url : data->urls()) {
        if (!url.isLocalFile())
            continue;
        const QString path = HVApp::standardizedPath(url.toLocalFile());
        const HVItemClass itemClass = HVItemClassifier::classifyItem(path, m_reader.get());
        if (itemClass == HVItemClassApplication || itemClass == HVItemClassFolder)
            kept.append(path);
    }
    const int before = rowCount();
    insertPaths(kept, row);
    return rowCount() != before;
}

int HVArrayController::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(arrangedObjects().size());
}

QVariant HVArrayController::data(const QModelIndex& index, int role) const
{
    const QVariantList objects = arrangedObjects();
    if (!index.isValid() || index.row() >= objects.size() ||
        (role != Qt::DisplayRole && role != Qt::EditRole))
        return QVariant();
    return objects.at(index.row()).toMap().value(PathKey);
}

Qt::ItemFlags HVArrayController::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractListModel::flags(index) | Qt::ItemIsDropEnabled;
    return index.isValid() ? flags | Qt::ItemIsDragEnabled : flags;
}

QStringList HVArrayController::mimeTypes() const
{
    return {MovedRowsType, CopiedRowsType, QStringLiteral("text/uri-list")};
}

QMimeData* HVArrayController::mimeData(const QModelIndexList& indexes) const
{
    QList<int> rows;
    for (const QModelIndex& index : indexes)
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return mimeDataForRows(rows);
}

Qt::DropActions HVArrayController::supportedDropActions() const
{
    return Qt::CopyAction | Qt::MoveAction;
}

bool HVArrayController::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int,
                                     const QModelIndex&)
{
    const bool internal = data && data->hasFormat(MovedRowsType);
    return acceptDrop(data, row < 0 ? rowCount() : row, internal, action == Qt::CopyAction);
}
