// The "Folders" tab: the folders scanned for applications, in order, on the scan-folder list
// model — add with a folder dialog, remove, reorder by dragging, folders dropped from the file
// manager — and the scan depth, shown while Alt is held.
#include "hvpreferenceswindow.h"

#include "hvdefaultsbinding.h"

#include "catalogue/hvarraycontroller.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QIdentityProxyModel>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {
// Marks the folders that the scan skips: missing, not a folder, or unreadable.
class FolderStates : public QIdentityProxyModel
{
    Q_DECLARE_TR_FUNCTIONS(FolderStates)

public:
    using QIdentityProxyModel::QIdentityProxyModel;

    QVariant data(const QModelIndex& index, int role) const override
    {
        const QVariant value = QIdentityProxyModel::data(index, role);
        if (role != Qt::DisplayRole && role != Qt::ForegroundRole && role != Qt::ToolTipRole)
            return value;
        const QString path = QIdentityProxyModel::data(index, Qt::DisplayRole).toString();
        const QFileInfo info(HVArrayController::resolvedPath(path));
        QString problem;
        if (!info.exists())
            problem = tr("does not exist");
        else if (!info.isDir())
            problem = tr("is not a folder");
        else if (!info.isReadable())
            problem = tr("cannot be read");
        if (problem.isEmpty())
            return value;
        if (role == Qt::ForegroundRole)
            return QColor(Qt::gray);
        if (role == Qt::ToolTipRole)
            return tr("Skipped by the scan: this folder %1").arg(problem);
        return tr("%1 (%2)").arg(path, problem);
    }
};
} // namespace

QWidget* HVPreferencesWindow::foldersTab()
{
    auto* tab = new QWidget;
    m_folders = new HVArrayController(m_defaults, {}, tab);
    auto* view = new QListView;
    view->setObjectName(QStringLiteral("searchDirectories"));
    view->setModel(new FolderStates(tab));
    static_cast<QIdentityProxyModel*>(view->model())->setSourceModel(m_folders);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->setDragDropMode(QAbstractItemView::DragDrop);
    view->setDefaultDropAction(Qt::MoveAction);
    view->setDropIndicatorShown(true);
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, m_folders, [this, view] {
        QList<int> rows;
        for (const QModelIndex& index : view->selectionModel()->selectedRows())
            rows.append(index.row());
        std::sort(rows.begin(), rows.end());
        m_folders->setSelectionIndexes(rows);
    });

    auto* add = new QPushButton(tr("Add…"));
    add->setObjectName(QStringLiteral("addSearchDirectory"));
    connect(add, &QPushButton::clicked, this, [this] {
        const QString folder = QFileDialog::getExistingDirectory(this, tr("Choose a folder to scan"));
        m_folders->openPanelDidEnd(folder.isEmpty() ? QStringList() : QStringList{folder},
                                   folder.isEmpty() ? 0 : 1);
    });
    auto* remove = new QPushButton(tr("Remove"));
    remove->setObjectName(QStringLiteral("removeSearchDirectory"));
    connect(remove, &QPushButton::clicked, m_folders, &HVArrayController::removeSelectedObjects);

    auto* depth = new QSpinBox;
    depth->setObjectName(QStringLiteral("maxFolderRecursionDepth"));
    HVDefaultsBinding::bindSpinBox(depth, m_defaults, QStringLiteral("maxFolderRecursionDepth"), 0, 10);
    auto* depthLabel = new QLabel(tr("Folder levels to look into:"));
    m_altControls += {depth, depthLabel};

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(remove);
    buttons->addStretch();
    buttons->addWidget(depthLabel);
    buttons->addWidget(depth);
    auto* layout = new QVBoxLayout(tab);
    layout->addWidget(new QLabel(tr("Nimbo looks for applications in these folders, in this order:")));
    layout->addWidget(view);
    layout->addLayout(buttons);
    return tab;
}
