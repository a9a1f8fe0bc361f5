#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>

#include "hostkit/TLDialogDriver.h"

namespace TMObjects {
namespace {

// A tool's dialog kept open beside the map, with a widget of each kind a script drives.
class DialogDriver : public ::testing::Test {
protected:
    void SetUp() override {
        dialog.setObjectName("TMOffsetDistance");
        auto* layout = new QVBoxLayout(&dialog);
        distance = add<QLineEdit>("mLineEditDistance");
        side = add<QComboBox>("mComboBoxSide");
        side->addItems({"left", "right"});
        angle = add<QDoubleSpinBox>("mDoubleSpinBoxAngle");
        angle->setRange(0, 360);
        keep = add<QCheckBox>("mCheckBoxKeep");
        result = add<QLabel>("mLabelResult");
        compute = add<QPushButton>("mPushButtonCompute");
        compute->setText("&Compute");
        for (QWidget* w : dialog.findChildren<QWidget*>()) layout->addWidget(w);
        QObject::connect(distance, &QLineEdit::textEdited,
                         [this](const QString& text) { edited << text; });
        QObject::connect(compute, &QPushButton::clicked, [this] {
            result->setText(QString("%1 m %2").arg(distance->text(), side->currentText()));
        });
        dialog.show();
    }

    template <class W>
    W* add(const char* name) {
        auto* w = new W(&dialog);
        w->setObjectName(name);
        return w;
    }

    QWidget* find(const char* name) {
        std::string error;
        QWidget* w = TLDialogDriver::Find(name, error);
        EXPECT_TRUE(w) << error;
        return w;
    }

    QDialog dialog;
    QLineEdit* distance;
    QComboBox* side;
    QDoubleSpinBox* angle;
    QCheckBox* keep;
    QLabel* result;
    QPushButton* compute;
    QStringList edited;
};

TEST_F(DialogDriver, ValuesAreTypedAndPickedAsAUserWouldAndTheButtonActsOnThem) {
    std::string error;
    distance->setText("old");
    ASSERT_TRUE(TLDialogDriver::Set(find("mLineEditDistance"), "12.5", error)) << error;
    ASSERT_TRUE(TLDialogDriver::Set(find("mComboBoxSide"), "right", error)) << error;
    ASSERT_TRUE(TLDialogDriver::Set(find("mDoubleSpinBoxAngle"), "45.5", error)) << error;
    ASSERT_TRUE(TLDialogDriver::Set(find("mCheckBoxKeep"), "on", error)) << error;
    // The text replaced what was there, and the dialog heard it as typed.
    EXPECT_EQ(distance->text(), "12.5");
    EXPECT_EQ(edited, QStringList{"12.5"});
    EXPECT_EQ(side->currentText(), "right");
    EXPECT_DOUBLE_EQ(angle->value(), 45.5);
    EXPECT_TRUE(keep->isChecked());

    ASSERT_TRUE(TLDialogDriver::Click(find("mPushButtonCompute"), error)) << error;
    EXPECT_EQ(TLDialogDriver::Text(find("mLabelResult")), "12.5 m right");
    EXPECT_EQ(TLDialogDriver::Text(find("mCheckBoxKeep")), "on");
    EXPECT_EQ(TLDialogDriver::Text(find("mComboBoxSide")), "right");
    EXPECT_EQ(TLDialogDriver::Text(find("mPushButtonCompute")), "Compute");
}

TEST_F(DialogDriver, WhatAWidgetCannotTakeIsRefusedWithTheReasonAndLeavesItAsItWas) {
    std::string error;
    EXPECT_FALSE(TLDialogDriver::Set(find("mComboBoxSide"), "up", error));
    EXPECT_NE(error.find("no entry \"up\""), std::string::npos) << error;
    EXPECT_EQ(side->currentText(), "left");
    EXPECT_FALSE(TLDialogDriver::Set(find("mDoubleSpinBoxAngle"), "400", error));
    EXPECT_FALSE(TLDialogDriver::Set(find("mDoubleSpinBoxAngle"), "north", error));
    EXPECT_DOUBLE_EQ(angle->value(), 0);
    EXPECT_FALSE(TLDialogDriver::Set(find("mCheckBoxKeep"), "yes", error));
    EXPECT_FALSE(TLDialogDriver::Set(find("mLabelResult"), "text", error));
    EXPECT_FALSE(TLDialogDriver::Click(find("mLineEditDistance"), error));
    compute->setEnabled(false);
    EXPECT_FALSE(TLDialogDriver::Click(find("mPushButtonCompute"), error));
    EXPECT_NE(error.find("disabled"), std::string::npos) << error;
    EXPECT_TRUE(result->text().isEmpty());
}

TEST_F(DialogDriver, ACellOfATableIsTypedIntoAndTheTableReadsRowByRow) {
    QDialog window;
    auto* table = new QTableView(&window);
    table->setObjectName("mTableViewPoint");
    QStandardItemModel model(0, 3);
    table->setModel(&model);
    for (const char* name : {"point 0", "point 1"}) {
        auto* number = new QStandardItem(name);
        number->setEditable(false);
        model.appendRow({number, new QStandardItem("1.5"), new QStandardItem("z")});
    }
    table->setColumnHidden(2, true);
    window.show();
    QStringList changed;
    QObject::connect(&model, &QStandardItemModel::dataChanged,
                     [&](const QModelIndex& cell) { changed << cell.data().toString(); });

    std::string error;
    ASSERT_TRUE(TLDialogDriver::Set(find("mTableViewPoint"), "1 1 -2.25 m", error)) << error;
    EXPECT_EQ(changed, QStringList{"-2.25 m"});
    EXPECT_EQ(TLDialogDriver::Text(find("mTableViewPoint")), "point 0, 1.5; point 1, -2.25 m");
    EXPECT_FALSE(TLDialogDriver::Set(find("mTableViewPoint"), "0 0 point 9", error));
    EXPECT_NE(error.find("cannot be edited"), std::string::npos) << error;
    EXPECT_FALSE(TLDialogDriver::Set(find("mTableViewPoint"), "5 1 3", error));
    EXPECT_FALSE(TLDialogDriver::Set(find("mTableViewPoint"), "1 1", error));
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(DialogDriver, OnlyWidgetsOnScreenAreFound) {
    std::string error;
    EXPECT_TRUE(TLDialogDriver::Find("TMOffsetDistance", error));
    EXPECT_FALSE(TLDialogDriver::Find("mLineEditBearing", error));
    EXPECT_EQ(error, "no widget \"mLineEditBearing\" is on screen");
    dialog.hide();
    EXPECT_FALSE(TLDialogDriver::Find("mLineEditDistance", error));
}

}  // namespace
}  // namespace TMObjects
