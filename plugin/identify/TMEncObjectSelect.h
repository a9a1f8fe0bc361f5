#pragma once

#include <QDialog>
#include <QString>
#include <vector>

#include "tlmap/TLEncObjectAttribute.h"

class QTreeWidget;
class QTreeWidgetItem;

// The chart objects under a pick, sorted under their kind (point, area, line), each with its
// attributes below it.
class TMEncObjectSelect : public QDialog {
public:
    explicit TMEncObjectSelect(QWidget* parent = nullptr);

    // Empties the tree and sets up its two columns and the three kind rows.
    void clearObjects();
    // Objects of other kinds than 0 point, 1 line and 2 area are dropped. Attributes with an
    // empty name or value are left out.
    void addObject(int primitive, const QString& name,
                   const std::vector<TMObjects::TLEncObjectAttribute>& attributes);
    void expandAll();

private:
    QTreeWidgetItem* kindRow(int primitive) const;

    QTreeWidget* mTreeWidget = nullptr;
};
