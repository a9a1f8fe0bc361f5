#pragma once

#include <QPushButton>
#include <QRgb>

// A push button that shows a colour as its face and lets the user pick another in the toolkit's
// colour dialog. It tells of every change, by the user or by setColor, through colorChanged.
class TMColorBtn : public QPushButton {
    Q_OBJECT

public:
    explicit TMColorBtn(QWidget* parent = nullptr);

    QRgb color() const { return mColor; }
    // Shows the colour; colorChanged follows when it differs from the one shown.
    void setColor(const QRgb& color);

Q_SIGNALS:
    void colorChanged(const QRgb& color);

private:
    void chooseColor();
    void paintFace();

    QRgb mColor = qRgb(0, 0, 0);
};
