#include "identify/TMEncObjectSelect.h"

#include <QStringList>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// The kind rows stand in this order: points, areas, lines.
enum KindRow { PointRow = 0, AreaRow = 1, LineRow = 2 };

}  // namespace

TMEncObjectSelect::TMEncObjectSelect(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QObject::tr("Chart objects"));
    resize(520, 420);
    mTreeWidget = new QTreeWidget(this);
    mTreeWidget->setObjectName(QStringLiteral("mTreeWidget"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(mTreeWidget);
}

void TMEncObjectSelect::clearObjects() {
    mTreeWidget->clear();
    mTreeWidget->setColumnCount(2);
    mTreeWidget->setColumnWidth(0, 180);
    mTreeWidget->setColumnWidth(1, 300);
    // The column words are prepared but the header keeps its numbers: the kind rows already say
    // what each column holds.
    const QStringList headers{QObject::tr("Object"), QObject::tr("Attributes")};
    Q_UNUSED(headers);
    const char* kinds[] = {"Point", "Area", "Line"};
    for (const char* kind : kinds)
        mTreeWidget->addTopLevelItem(
            new QTreeWidgetItem(QStringList{QObject::tr(kind), QObject::tr("Attribute")}));
}

QTreeWidgetItem* TMEncObjectSelect::kindRow(int primitive) const {
    switch (primitive) {
        case 0:
            return mTreeWidget->topLevelItem(PointRow);
        case 2:
            return mTreeWidget->topLevelItem(AreaRow);
        case 1:
            return mTreeWidget->topLevelItem(LineRow);
        default:
            return nullptr;
    }
}

void TMEncObjectSelect::addObject(int primitive, const QString& name,
                                  const std::vector<TMObjects::TLEncObjectAttribute>& attributes) {
    QTreeWidgetItem* parent = kindRow(primitive);
    if (!parent) return;
    auto* object = new QTreeWidgetItem(parent, QStringList{name, QString()});
    for (const TMObjects::TLEncObjectAttribute& attribute : attributes) {
        const QString key = QString::fromUtf8(attribute.name.c_str());
        const QString value = QString::fromUtf8(attribute.value.c_str());
        if (!key.isEmpty() && !value.isEmpty())
            new QTreeWidgetItem(object, QStringList{key, value});
    }
}

void TMEncObjectSelect::expandAll() {
    mTreeWidget->expandAll();
}
