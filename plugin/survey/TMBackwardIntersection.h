#pragma once

#include "survey/TMIntersectionDialog.h"

class QLabel;

// The backward intersection: P from the known points A, B and C and the two angles observed at
// P, a1 between A and B and a2 between B and C, with A, B and C clockwise as seen from P.
class TMBackwardIntersection : public TMIntersectionDialog {
public:
    explicit TMBackwardIntersection(QWidget* parent = nullptr);

    void resetForm() override;
    void on_mPushButtonC_clicked();
    void onRadioCheck(int id);

protected:
    bool calculate() override;
    int drawCode() const override;
    bool takePick(const QString& x, const QString& y) override;

private:
    QHBoxLayout* buildObservations();
    void readForm();
    bool anglesValid();

    double cx = 0.0, cy = 0.0;
    double a1 = 0.0, a2 = 0.0;
    QPushButton* mPushButtonC = nullptr;
    QLineEdit* mLineEditCAbscissa = nullptr;
    QLineEdit* mLineEditCOrdinate = nullptr;
    QLabel* mLabelA1 = nullptr;
    QLabel* mLabelA2 = nullptr;
    QLineEdit* mLineEditAngle = nullptr;
    QLineEdit* mLineEditAngle2 = nullptr;
};
