#include "tmcontrolbase/TMColorBtn.h"

#include <QColorDialog>

TMColorBtn::TMColorBtn(QWidget* parent) : QPushButton(parent) {
    connect(this, &QPushButton::clicked, this, &TMColorBtn::chooseColor);
    paintFace();
}

void TMColorBtn::setColor(const QRgb& color) {
    if (color == mColor) return;
    mColor = color;
    paintFace();
    Q_EMIT colorChanged(mColor);
}

void TMColorBtn::chooseColor() {
    const QColor chosen = QColorDialog::getColor(QColor::fromRgba(mColor), this);
    if (chosen.isValid()) setColor(chosen.rgba());
}

void TMColorBtn::paintFace() {
    setStyleSheet(QStringLiteral("background-color: %1;").arg(QColor::fromRgba(mColor).name()));
}
