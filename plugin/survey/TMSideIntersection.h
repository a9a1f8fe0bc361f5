#pragma once

#include "survey/TMIntersectionDialog.h"

class QLabel;

// The side intersection: P from the known points A and B and the distances AP and BP, on the
// chosen side of the direction from A to B.
class TMSideIntersection : public TMIntersectionDialog {
public:
    explicit TMSideIntersection(QWidget* parent = nullptr);

    void resetForm() override;
    void on_mPushButtonAP_clicked();
    void on_mPushButtonBP_clicked();
    void onRadioCheck(int id);

protected:
    bool calculate() override;
    int drawCode() const override;
    bool takePick(const QString& x, const QString& y) override;

private:
    QHBoxLayout* buildLengths();

    double r1 = 0.0, r2 = 0.0;
    QPushButton* mPushButtonAP = nullptr;
    QPushButton* mPushButtonBP = nullptr;
    QLabel* mLabelAPLength = nullptr;
    QLabel* mLabelBPLength = nullptr;
    QLineEdit* mLineEditAPLength = nullptr;
    QLineEdit* mLineEditBPLength = nullptr;
};
