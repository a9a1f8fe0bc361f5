// Trees and tables of a dialog on screen, read and clicked as a user reads and clicks them.
#include <gtest/gtest.h>

#include <QDialog>
#include <QStandardItemModel>
#include <QTableWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "hostkit/TLItemViewDriver.h"

namespace TMObjects {
namespace {

TEST(ItemViewDriver, ATreeReadsAsItsItemsWithTheirChildrenAndAClickTellsTheItem) {
    QDialog dialog;
    auto* tree = new QTreeWidget(&dialog);
    (new QVBoxLayout(&dialog))->addWidget(tree);
    auto* wells = new QTreeWidgetItem(tree, {"wells:name"});
    new QTreeWidgetItem(wells, {"W-1"});
    new QTreeWidgetItem(wells, {"W-2"});
    auto* roads = new QTreeWidgetItem(tree, {"roads:name"});
    new QTreeWidgetItem(roads, {"W-2"});
    tree->expandAll();
    dialog.resize(300, 300);
    dialog.show();

    std::string text, error;
    ASSERT_TRUE(TLItemViewDriver::TreeText(tree, text, error)) << error;
    EXPECT_EQ(text, "wells:name (W-1, W-2); roads:name (W-2)");

    QStringList clicked;
    QObject::connect(tree, &QTreeWidget::clicked,
                     [&](const QModelIndex& index) { clicked << index.data().toString(); });
    ASSERT_TRUE(TLItemViewDriver::ClickItem(tree, "roads:name > W-2", error)) << error;
    EXPECT_EQ(clicked, QStringList{"W-2"});
    EXPECT_EQ(tree->currentItem()->parent(), roads);
    ASSERT_TRUE(TLItemViewDriver::ClickItem(tree, "W-2", error));
    EXPECT_EQ(tree->currentItem()->parent(), wells);
    EXPECT_FALSE(TLItemViewDriver::ClickItem(tree, "W-3", error));
    EXPECT_EQ(error, "the view  has no item \"W-3\"");
}

TEST(ItemViewDriver, ATableGivesItsCellsAndACellClickSelectsItsRow) {
    QDialog dialog;
    auto* table = new QTableWidget(3, 2, &dialog);
    table->setObjectName("mTableViewPoint");
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    (new QVBoxLayout(&dialog))->addWidget(table);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 2; ++column)
            table->setItem(row, column,
                           new QTableWidgetItem(QString("%1.%2").arg(row).arg(column)));
    dialog.resize(300, 300);
    dialog.show();

    std::string text, error;
    ASSERT_TRUE(TLItemViewDriver::CellText(table, 2, 1, text, error));
    EXPECT_EQ(text, "2.1");
    EXPECT_FALSE(TLItemViewDriver::CellText(table, 3, 0, text, error));
    EXPECT_EQ(error, "the view mTableViewPoint has no cell 3 0");

    int clickedRow = -1;
    QObject::connect(table, &QTableWidget::clicked,
                     [&](const QModelIndex& index) { clickedRow = index.row(); });
    ASSERT_TRUE(TLItemViewDriver::ClickCell(table, 1, 0, error)) << error;
    EXPECT_EQ(clickedRow, 1);
    EXPECT_EQ(table->currentRow(), 1);
    EXPECT_TRUE(table->item(1, 1)->isSelected());
}

}  // namespace
}  // namespace TMObjects
