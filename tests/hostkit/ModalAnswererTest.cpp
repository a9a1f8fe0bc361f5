#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <cstdlib>
#include <fstream>

#include "hostkit/TLModalAnswerer.h"

namespace TMObjects {
namespace {

class ModalAnswerer : public ::testing::Test {
protected:
    void SetUp() override { answerer.Start(); }
    TLModalAnswerer answerer;
};

TEST_F(ModalAnswerer, MessageBoxesTakeTheQueuedButtonsInOrder) {
    answerer.Queue("No");
    answerer.Queue("&yes");
    const auto first = QMessageBox::warning(nullptr, "Save Attribute Edits", "Save the edits?",
                                            QMessageBox::Yes | QMessageBox::No);
    const auto second = QMessageBox::question(nullptr, "Delete", "Delete 3 features?",
                                              QMessageBox::Yes | QMessageBox::No);
    EXPECT_EQ(first, QMessageBox::No);
    EXPECT_EQ(second, QMessageBox::Yes);
    ASSERT_EQ(answerer.Records().size(), 2u);
    const TLModalAnswerer::Record& record = answerer.Records()[0];
    EXPECT_EQ(record.kind, "message box");
    EXPECT_EQ(record.title, "Save Attribute Edits");
    EXPECT_EQ(record.text, "Save the edits?");
    EXPECT_EQ(record.answer, "No");
    EXPECT_TRUE(record.queued);
    EXPECT_TRUE(record.matched);
    EXPECT_EQ(answerer.Records()[1].answer, "Yes");
    EXPECT_EQ(answerer.Pending(), 0);
}

TEST_F(ModalAnswerer, UnqueuedOrUnfittingAnswersDismissTheBoxAsEscapeWould) {
    const auto unqueued = QMessageBox::question(nullptr, "Overwrite", "Overwrite the file?",
                                                QMessageBox::Yes | QMessageBox::No);
    answerer.Queue("Maybe");
    const auto unfitting = QMessageBox::question(nullptr, "Overwrite", "Overwrite the file?",
                                                 QMessageBox::Yes | QMessageBox::No);
    EXPECT_EQ(unqueued, QMessageBox::No);
    EXPECT_EQ(unfitting, QMessageBox::No);
    ASSERT_EQ(answerer.Records().size(), 2u);
    EXPECT_FALSE(answerer.Records()[0].queued);
    EXPECT_EQ(answerer.Records()[0].answer, "No");
    EXPECT_TRUE(answerer.Records()[1].queued);
    EXPECT_FALSE(answerer.Records()[1].matched);
}

TEST_F(ModalAnswerer, FileAndInputDialogsTakeTheQueuedValue) {
    QTemporaryDir dir;
    const QString path = dir.filePath("parcels.sld");
    std::ofstream(path.toStdString()) << "<StyledLayerDescriptor/>";
    answerer.Queue(path.toStdString());
    answerer.Queue("north wells");
    answerer.Queue("reject");
    EXPECT_EQ(QFileDialog::getOpenFileName(nullptr, "Open style", dir.path(), "SLD (*.sld)"), path);
    EXPECT_EQ(QInputDialog::getText(nullptr, "Layer name", "Name:"), "north wells");
    EXPECT_TRUE(QFileDialog::getSaveFileName(nullptr, "Export", dir.path()).isEmpty());
    ASSERT_EQ(answerer.Records().size(), 3u);
    EXPECT_EQ(answerer.Records()[0].kind, "file dialog");
    EXPECT_EQ(answerer.Records()[0].answer, path.toStdString());
    EXPECT_EQ(answerer.Records()[1].kind, "input dialog");
    EXPECT_EQ(answerer.Records()[1].text, "Name:");
    EXPECT_EQ(answerer.Records()[2].answer, "rejected");
}

// A choice picks the entry of the named combo box by its exact text and accepts; an entry the
// combo does not hold rejects the dialog and is marked as not fitting.
TEST_F(ModalAnswerer, AChoiceSetsTheComboBoxBeforeAccepting) {
    QDialog dialog;
    auto* combo = new QComboBox(&dialog);
    combo->setObjectName("layerComboBox");
    combo->addItems({"roads", "tracks", "rivers"});
    answerer.QueueChoice("layerComboBox", "tracks");
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
    EXPECT_EQ(combo->currentText(), "tracks");
    EXPECT_EQ(answerer.Records().back().answer, "chose \"tracks\" in layerComboBox, accepted");

    answerer.QueueChoice("layerComboBox", "Tracks");
    EXPECT_EQ(dialog.exec(), QDialog::Rejected);
    EXPECT_FALSE(answerer.Records().back().matched);
    EXPECT_EQ(combo->currentText(), "tracks");
}

TEST_F(ModalAnswerer, AMissingFileToOpenLeavesTheDialogUpUntilTheNextAnswer) {
    QTemporaryDir dir;
    answerer.Queue(dir.filePath("missing.txt").toStdString());
    // The dialog's own warning about the missing file, then the dialog again.
    answerer.Queue("OK");
    answerer.Queue("cancel");
    EXPECT_TRUE(QFileDialog::getOpenFileName(nullptr, "Open", dir.path()).isEmpty());
    ASSERT_EQ(answerer.Records().size(), 3u);
    EXPECT_EQ(answerer.Records()[1].kind, "message box");
    EXPECT_EQ(answerer.Records()[2].answer, "rejected");
}

TEST_F(ModalAnswerer, AFormIsAnsweredThroughItsButtonsAndAKeptFormAgainWhenShownAgain) {
    QDialog form;
    form.setWindowTitle("Micro traverse");
    auto* layout = new QHBoxLayout(&form);
    auto* compute = new QPushButton("&Compute", &form);
    auto* close = new QPushButton("Close", &form);
    layout->addWidget(compute);
    layout->addWidget(close);
    QObject::connect(compute, &QPushButton::clicked, &form, &QDialog::accept);
    QObject::connect(close, &QPushButton::clicked, &form, &QDialog::reject);
    // More shows than the answerer's limit for one showing: each showing counts afresh.
    for (int i = 0; i < 4; ++i) {
        answerer.Queue("Compute");
        EXPECT_EQ(form.exec(), QDialog::Accepted) << i;
    }
    answerer.Queue("Close");
    EXPECT_EQ(form.exec(), QDialog::Rejected);
    EXPECT_EQ(answerer.Records().back().title, "Micro traverse");
    EXPECT_EQ(answerer.Records().back().answer, "Close");
}

}  // namespace
}  // namespace TMObjects
