#pragma once

#include "survey/TMIntersectionDialog.h"

class QLabel;

// The forward intersection: P from the known points A and B and the angles observed at them,
// a1 at A and a2 at B, on the chosen side of AB.
class TMForwardIntersection : public TMIntersectionDialog {
public:
    explicit TMForwardIntersection(QWidget* parent = nullptr);

    void resetForm() override;
    void on_mPushButtonAngle1_clicked();
    void on_mPushButtonAngle2_clicked();
    void onRadioCheck(int id);
    void onRadioCheck2(int id);

protected:
    // Never stops the action slots: after a warning they go on with the P they had.
    bool calculate() override;
    int drawCode() const override;
    bool takePick(const QString& x, const QString& y) override;

private:
    QHBoxLayout* buildObservations();
    // Warns and answers false when the input allows no construction.
    bool inputValid();
    // The angle at A (code 3) or at B (code 4) of the triangle A, B and the click.
    double pickedAngle(double px, double py) const;
    void solve();

    double a1 = 0.0, a2 = 0.0;
    QPushButton* mPushButtonAngle1 = nullptr;
    QPushButton* mPushButtonAngle2 = nullptr;
    QLabel* mLabelA1 = nullptr;
    QLabel* mLabelA2 = nullptr;
    QLineEdit* mLineEditAngle1 = nullptr;
    QLineEdit* mLineEditAngle2 = nullptr;
};
