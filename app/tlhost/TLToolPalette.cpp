#include "TLToolPalette.h"

#include <QAction>
#include <QActionGroup>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMap>
#include <QMenu>
#include <QRegularExpression>

#include "TLShellToolTable.h"

namespace TMObjects {

namespace {

const int kIndexRole = Qt::UserRole;

}  // namespace

TLToolPalette::TLToolPalette(QWidget* parent)
    : QTreeWidget(parent), mGroup(new QActionGroup(this)) {
    setObjectName("toolPalette");
    setColumnCount(2);
    setHeaderLabels({tr("Tool"), tr("Status")});
    header()->setSectionResizeMode(ToolColumn, QHeaderView::Stretch);
    header()->setSectionResizeMode(StatusColumn, QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    setRootIsDecorated(true);
    setUniformRowHeights(true);
    // At most one tool is in use, and none after the last one was left.
    mGroup->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);

    QMap<QString, QTreeWidgetItem*> groups;
    for (const QString& subsystem : TLShellToolTable::Subsystems()) {
        auto* group = new QTreeWidgetItem(this, {subsystem});
        group->setFlags(Qt::ItemIsEnabled);
        group->setFirstColumnSpanned(true);
        QFont bold = group->font(ToolColumn);
        bold.setBold(true);
        group->setFont(ToolColumn, bold);
        groups.insert(subsystem, group);
    }
    const auto& entries = TLShellToolTable::Entries();
    for (int i = 0; i < int(entries.size()); ++i) {
        const auto& entry = entries[std::size_t(i)];
        const bool built = entry.status == TLShellToolTable::Built;
        // The column says built or not; why a tool is not built stays in the tooltip, so that
        // the column is narrow and the names keep their room.
        auto* item =
            new QTreeWidgetItem(groups.value(entry.subsystem),
                                {Label(entry.className), built ? tr("built") : tr("not built")});
        item->setData(ToolColumn, kIndexRole, i);
        item->setToolTip(ToolColumn, entry.className);
        item->setToolTip(StatusColumn, TLShellToolTable::StatusText(entry.status));
        // The check mark shows the tool in use; a click picks the tool rather than ticking it.
        item->setCheckState(ToolColumn, Qt::Unchecked);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        // Tools that are not built still run (they answer as the base tool does), but are
        // greyed so that nobody expects them to draw anything.
        if (!built)
            item->setForeground(ToolColumn, palette().brush(QPalette::Disabled, QPalette::Text));
        item->setForeground(StatusColumn,
                            built ? QBrush(QColor(0, 120, 0))
                                  : palette().brush(QPalette::Disabled, QPalette::Text));
        mItems.push_back(item);

        auto* action =
            new QAction(Label(entry.className) + (built ? QString() : tr(" (not built)")), this);
        action->setCheckable(true);
        action->setToolTip(entry.className);
        action->setData(i);
        mGroup->addAction(action);
        connect(action, &QAction::triggered, this, [this, i] { Q_EMIT toolPicked(i); });
        mActions.push_back(action);
    }
    expandAll();
    connect(this, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { pickItem(item); });
}

QString TLToolPalette::Label(const QString& className) {
    static const QRegularExpression prefix(QStringLiteral("^(TLCmd|TLTool|TmTool|TL|Tm)"));
    static const QRegularExpression wordStart(QStringLiteral("(?<=[a-z])(?=[A-Z])"));
    QString name = className;
    name.remove(prefix);
    return name.split(wordStart).join(' ');
}

void TLToolPalette::FillMenu(QMenu* menu) {
    QMap<QString, QMenu*> submenus;
    for (const QString& subsystem : TLShellToolTable::Subsystems())
        submenus.insert(subsystem, menu->addMenu(subsystem));
    const auto& entries = TLShellToolTable::Entries();
    for (std::size_t i = 0; i < entries.size(); ++i)
        submenus.value(entries[i].subsystem)->addAction(mActions[i]);
}

QTreeWidgetItem* TLToolPalette::ItemOf(int index) const {
    if (index < 0 || index >= int(mItems.size())) return nullptr;
    return mItems[std::size_t(index)];
}

QAction* TLToolPalette::ActionOf(int index) const {
    if (index < 0 || index >= int(mActions.size())) return nullptr;
    return mActions[std::size_t(index)];
}

void TLToolPalette::SetActive(int index) {
    mActive = index;
    for (int i = 0; i < int(mItems.size()); ++i) {
        mItems[std::size_t(i)]->setCheckState(ToolColumn, i == index ? Qt::Checked : Qt::Unchecked);
        mActions[std::size_t(i)]->setChecked(i == index);
    }
}

void TLToolPalette::pickItem(QTreeWidgetItem* item) {
    if (!item || !item->data(ToolColumn, kIndexRole).isValid()) return;
    Q_EMIT toolPicked(item->data(ToolColumn, kIndexRole).toInt());
}

void TLToolPalette::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        pickItem(currentItem());
        return;
    }
    QTreeWidget::keyPressEvent(event);
}

}  // namespace TMObjects
