#include "annotation/TMDialogAnnoAttributes.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDebug>
#include <QDoubleValidator>
#include <QFontComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegExpValidator>
#include <QRegularExpression>

#include "TLToolText.h"
#include "tlgraphics/TLFont.h"
#include "tlmap/TLAnnotationLayer.h"
#include "tmcontrolbase/TMColorBtn.h"

using namespace TMObjects;

namespace {

QString number6(double value) {
    return QString::number(value, 'g', 6);
}

// The anchor buttons by stored value, 0 to 8.
QRadioButton* anchorButton(const Ui_TMDialogAnnoAttributes& ui, int value) {
    QRadioButton* const buttons[] = {ui.radioButton_lt, ui.radioButton_rt, ui.radioButton_rb,
                                     ui.radioButton_lb, ui.radioButton_mt, ui.radioButton_rm,
                                     ui.radioButton_tb, ui.radioButton_lm, ui.radioButton_mm};
    return value >= 0 && value <= 8 ? buttons[value] : nullptr;
}

// The guide buttons by stored value; their group ids differ (single line and border arrow are
// swapped there).
QRadioButton* guideButton(const Ui_TMDialogAnnoAttributes& ui, int value) {
    QRadioButton* const buttons[] = {ui.radioButton_guide_none, ui.radioButton_guide_single,
                                     ui.radioButton_guide_arrow, ui.radioButton_guide_underline,
                                     ui.radioButton_guide_nounderline};
    return value >= 0 && value <= 4 ? buttons[value] : ui.radioButton_guide_none;
}

}  // namespace

TMDialogAnnoAttributes::TMDialogAnnoAttributes(QWidget* parent)
    : QDialog(parent), mAnnotation(std::make_unique<TLAnnotation>()) {
    setupUi(this);
    buildGroups();
    setValidators();
    connectWidgets();
}

TMDialogAnnoAttributes::~TMDialogAnnoAttributes() = default;

void TMDialogAnnoAttributes::buildGroups() {
    mModeGroup = new QButtonGroup(this);
    mModeGroup->addButton(radioButton_single, 0);
    mModeGroup->addButton(radioButton_fraction, 1);
    mOrientationGroup = new QButtonGroup(this);
    mOrientationGroup->addButton(radioButton_horiorientation, 0);
    mOrientationGroup->addButton(radioButton_verorientation, 1);
    mGuideGroup = new QButtonGroup(this);
    mGuideGroup->addButton(radioButton_guide_none, 0);
    mGuideGroup->addButton(radioButton_guide_arrow, 1);
    mGuideGroup->addButton(radioButton_guide_single, 2);
    mGuideGroup->addButton(radioButton_guide_underline, 3);
    mGuideGroup->addButton(radioButton_guide_nounderline, 4);
}

void TMDialogAnnoAttributes::setValidators() {
    auto* angle = new QDoubleValidator(-360.0, 360.0, 3, this);
    lineEdit_fontangle->setValidator(angle);
    // Patterns are copied off the library's own data: the toolkit caches them past its unloading.
    auto* colour = new QRegExpValidator(QRegExp(QString::fromLatin1("^#[0-9a-fA-F]{6}")), this);
    for (QLineEdit* edit :
         {lineEdit_fontcolor, lineEdit_bgcolor, lineEdit_bglinecolor, lineEdit_outlinecolor}) {
        edit->setPlaceholderText(tr("Range:#000000-#FFFFFF"));
        edit->setValidator(colour);
    }
}

void TMDialogAnnoAttributes::connectWidgets() {
    connect(pushButton_ok, &QPushButton::clicked, this, [this] { on_pushButton_ok_clicked(); });
    connect(pushButton_cancel, &QPushButton::clicked, this,
            [this] { on_pushButton_cancel_clicked(); });
    connect(lineEdit_fontcolor, &QLineEdit::returnPressed, this,
            [this] { on_lineEdit_fontcolor_returnPressed(); });
    connect(lineEdit_bgcolor, &QLineEdit::returnPressed, this,
            [this] { on_lineEdit_bgcolor_returnPressed(); });
    connect(lineEdit_bglinecolor, &QLineEdit::returnPressed, this,
            [this] { on_lineEdit_bglinecolor_returnPressed(); });
    connect(lineEdit_outlinecolor, &QLineEdit::returnPressed, this,
            [this] { on_lineEdit_outlinecolor_returnPressed(); });
    connect(pushButton_fontcolor, &TMColorBtn::colorChanged, this,
            [this](const QRgb& c) { on_fontcolorChanged(c); });
    connect(pushButton_bgcolor, &TMColorBtn::colorChanged, this,
            [this](const QRgb& c) { on_bgcolorChanged(c); });
    connect(pushButton_bglinecolor, &TMColorBtn::colorChanged, this,
            [this](const QRgb& c) { on_bglinecolorChanged(c); });
    connect(pushButton_outlinecolor, &TMColorBtn::colorChanged, this,
            [this](const QRgb& c) { on_outlinecolorChanged(c); });
    for (QRadioButton* b : {radioButton_horiorientation, radioButton_verorientation})
        connect(b, &QRadioButton::clicked, this, [this] { onChangeOrientation(); });
    for (QRadioButton* b : {radioButton_single, radioButton_fraction})
        connect(b, &QRadioButton::clicked, this, [this] { onChangeMode(); });
    connect(mGuideGroup, &QButtonGroup::idClicked, this, [this](int id) { onChangeGuideMode(id); });
    connect(comboBox_bgstyle, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this](int index) { on_comboBox_bgstyle_currentIndexChanged(index); });
    connect(checkBox_isfillback, &QCheckBox::clicked, this,
            [this](bool checked) { on_checkBox_isfillback_clicked(checked); });
}

bool TMDialogAnnoAttributes::loadFromAnnotation() {
    if (mAnnotation) fillWidgets(*mAnnotation);
    return true;
}

void TMDialogAnnoAttributes::applyToLayer() {}

void TMDialogAnnoAttributes::cancelHook() {}

void TMDialogAnnoAttributes::setInitValue(const TLTextElement& text, int arrowType) {
    *mAnnotation = text;
    mAnnotation->put_ArrowHeadType(arrowType);
}

bool TMDialogAnnoAttributes::setLayer(TLLayer* layer) {
    auto* annotations = dynamic_cast<TLAnnotationLayer*>(layer);
    if (!annotations) {
        QMessageBox::warning(this, tr("Warning"), tr("It's not a annotation layer!"));
        return false;
    }
    mLayer = annotations;
    mFieldKind = annotations->annoFieldKind;
    mSignalsLive = false;
    const bool loaded = loadFromAnnotation();
    mSignalsLive = true;
    return loaded;
}

void TMDialogAnnoAttributes::on_pushButton_ok_clicked() {
    collectFromWidgets();
    applyToLayer();
    QDialog::accept();
}

void TMDialogAnnoAttributes::on_pushButton_cancel_clicked() {
    cancelHook();
    QDialog::reject();
}

void TMDialogAnnoAttributes::editToColor(QLineEdit* edit, TMColorBtn* button) {
    if (!mSignalsLive) return;
    const QColor colour(edit->text());
    if (colour.isValid()) button->setColor(colour.rgba());
}

void TMDialogAnnoAttributes::colorToEdit(const QRgb& color, QLineEdit* edit) {
    if (!mSignalsLive) return;
    edit->setText(QColor::fromRgba(color).name());
}

void TMDialogAnnoAttributes::on_lineEdit_fontcolor_returnPressed() {
    editToColor(lineEdit_fontcolor, pushButton_fontcolor);
}

void TMDialogAnnoAttributes::on_lineEdit_bgcolor_returnPressed() {
    editToColor(lineEdit_bgcolor, pushButton_bgcolor);
}

void TMDialogAnnoAttributes::on_lineEdit_bglinecolor_returnPressed() {
    editToColor(lineEdit_bglinecolor, pushButton_bglinecolor);
}

void TMDialogAnnoAttributes::on_lineEdit_outlinecolor_returnPressed() {
    editToColor(lineEdit_outlinecolor, pushButton_outlinecolor);
}

void TMDialogAnnoAttributes::on_fontcolorChanged(const QRgb& color) {
    colorToEdit(color, lineEdit_fontcolor);
}

void TMDialogAnnoAttributes::on_bgcolorChanged(const QRgb& color) {
    colorToEdit(color, lineEdit_bgcolor);
}

void TMDialogAnnoAttributes::on_bglinecolorChanged(const QRgb& color) {
    colorToEdit(color, lineEdit_bglinecolor);
}

void TMDialogAnnoAttributes::on_outlinecolorChanged(const QRgb& color) {
    colorToEdit(color, lineEdit_outlinecolor);
}

void TMDialogAnnoAttributes::onChangeOrientation() {
    const bool vertical = mOrientationGroup->checkedId() == 1;
    radioButton_indentleft->setText(vertical ? tr("Top") : tr("Left"));
    radioButton_indentmid->setText(tr("Middle"));
    radioButton_indentright->setText(vertical ? tr("Bottom") : tr("Right"));
}

void TMDialogAnnoAttributes::onChangeMode() {
    textEdit_denominator->setEnabled(mModeGroup->checkedId() == 1);
}

void TMDialogAnnoAttributes::onChangeGuideMode(int id) {
    const bool lines = id != 0 || comboBox_bgstyle->currentIndex() != 0;
    pushButton_bglinecolor->setEnabled(lines);
    lineEdit_bglinecolor->setEnabled(lines);
    lineEdit_bglinewidth->setEnabled(lines);
}

void TMDialogAnnoAttributes::on_comboBox_bgstyle_currentIndexChanged(int index) {
    if (mSignalsLive) updateBackgroundWidgets(index, checkBox_isfillback->isChecked());
}

void TMDialogAnnoAttributes::on_checkBox_isfillback_clicked(bool checked) {
    if (!mSignalsLive) return;
    pushButton_bgcolor->setEnabled(checked);
    lineEdit_bgcolor->setEnabled(checked);
}

void TMDialogAnnoAttributes::updateBackgroundWidgets(int index, bool filled) {
    const bool box = index != 0;
    for (QWidget* w :
         std::initializer_list<QWidget*>{checkBox_isfillback, pushButton_bgcolor, lineEdit_bgcolor})
        w->setEnabled(box);
    const bool lines = box || mGuideGroup->checkedId() != 0;
    for (QWidget* w : std::initializer_list<QWidget*>{pushButton_bglinecolor, lineEdit_bglinecolor,
                                                      lineEdit_bglinewidth})
        w->setEnabled(lines);
    if (box && !filled) {
        pushButton_bgcolor->setEnabled(false);
        lineEdit_bgcolor->setEnabled(false);
    }
}

void TMDialogAnnoAttributes::showColor(unsigned stored, TMColorBtn* button, QLineEdit* edit) {
    QColor colour = QColor::fromRgba(stored);
    if (!colour.isValid()) colour = QColor(0, 0, 0);
    button->setColor(colour.rgba());
    edit->setText(colour.name());
}

void TMDialogAnnoAttributes::fillWidgets(const TLAnnotation& a) {
    fillText(a);
    fillFont(a);
    fillLayout(a);
    fillBoxAndOutline(a);
}

void TMDialogAnnoAttributes::fillText(const TLAnnotation& a) {
    const QString text = toQString(a.get_Text());
    qDebug() << "TMDialogEditAnnoAttriutes: " << text;
    if (a.get_TextType() == TextFraction) {
        radioButton_fraction->setChecked(true);
        textEdit_denominator->setEnabled(true);
        QString numerator = text, denominator;
        if (text.contains(QLatin1String("||"))) {
            const QStringList parts = text.split(QStringLiteral("||"));
            numerator = parts.value(0);
            denominator = parts.value(1);
        } else if (text.contains('\n')) {
            numerator = text.section('\n', 0, 0);
            denominator = text.section('\n', 1);
        }
        textEdit_content->setPlainText(numerator);
        textEdit_denominator->setPlainText(denominator);
        return;
    }
    radioButton_single->setChecked(true);
    textEdit_denominator->setEnabled(false);
    textEdit_content->setPlainText(
        a.get_TextType() == TextMultiRow ? QString(text).replace(QLatin1String("||"), "\n") : text);
}

void TMDialogAnnoAttributes::fillFont(const TLAnnotation& a) {
    QString family = toQString(TLFont::GetEnglishNameForKnownFont(a.get_FontName()));
    if (family.isEmpty()) family = toQString(a.get_FontName());
    fontComboBox->setCurrentFont(QFont(family));
    checkBox_underline->setChecked(a.get_FontUnderline());
    checkBox_strike->setChecked(a.get_FontStrikeThrough());
    const int italic = a.get_FontItalic();
    comboBox_italicmode->setCurrentIndex(italic == 1 || italic == 2 ? italic : 0);
    checkBox_bold->setChecked(a.get_FontWeight() >= 700);
    const QString size = number6(a.get_FontHeight(TLTextElement::Points));
    const int item = comboBox_fontsize->findText(size, Qt::MatchExactly);
    if (item >= 0)
        comboBox_fontsize->setCurrentIndex(item);
    else
        comboBox_fontsize->setEditText(size);
    showColor(a.get_FontColor(), pushButton_fontcolor, lineEdit_fontcolor);
    showColor(a.get_BackColor(), pushButton_bgcolor, lineEdit_bgcolor);
    showColor(a.get_BoundColor(), pushButton_bglinecolor, lineEdit_bglinecolor);
    showColor(a.get_FontPathColor(), pushButton_outlinecolor, lineEdit_outlinecolor);
}

void TMDialogAnnoAttributes::fillLayout(const TLAnnotation& a) {
    if (QRadioButton* anchor = anchorButton(*this, a.get_AnchorPoint())) anchor->setChecked(true);
    lineEdit_linespace->setText(number6(a.get_LineSpace()));
    lineEdit_wordspace->setText(number6(a.get_WordSpace()));
    static const QRegularExpression trailing(QStringLiteral("\\.?0+$"));
    lineEdit_fontangle->setText(QString::number(a.get_FontAngle(), 'f', 6).remove(trailing));
    (a.get_WordOrientation() == OrientationVertical ? radioButton_verorientation
                                                    : radioButton_horiorientation)
        ->setChecked(true);
    onChangeOrientation();
    const int align = a.get_TextHorizAlign();
    (align == 1   ? radioButton_indentleft
     : align == 3 ? radioButton_indentright
                  : radioButton_indentmid)
        ->setChecked(true);
}

void TMDialogAnnoAttributes::fillBoxAndOutline(const TLAnnotation& a) {
    const int style = a.get_BackgroundStyle();
    if (style == 1 || style == 3) comboBox_bgstyle->setCurrentIndex(1);
    if (style == 2 || style == 4) comboBox_bgstyle->setCurrentIndex(2);
    checkBox_isfillback->setChecked(style == 1 || style == 2);
    guideButton(*this, a.mArrowHeadType)->setChecked(true);
    updateBackgroundWidgets(comboBox_bgstyle->currentIndex(), checkBox_isfillback->isChecked());
    lineEdit_bglinewidth->setText(number6(a.get_BoundWidth()));
    const bool outline = a.get_FontPathWidth() > 0;
    checkBox_drawoutline->setChecked(outline);
    lineEdit_outlinewidth->setText(outline ? number6(a.get_FontPathWidth()) : QStringLiteral("1"));
}

void TMDialogAnnoAttributes::collectFromWidgets() {
    collectText();
    collectLayout();
    collectFont();
    collectBoxAndOutline();
}

void TMDialogAnnoAttributes::collectText() {
    const bool fraction = radioButton_fraction->isChecked();
    QString text = textEdit_content->toPlainText().trimmed();
    if (fraction) {
        text += QLatin1String("||");
        const QString denominator = textEdit_denominator->toPlainText().trimmed();
        if (!denominator.isEmpty()) text += denominator;
    }
    qDebug() << "TMDialogAnnoAttributes-new content: " << text;
    mAnnotation->put_TextType(fraction ? TextFraction : TextSingleRow);
    mAnnotation->put_Text(toTLString(text));
}

void TMDialogAnnoAttributes::collectLayout() {
    int anchor = PositionMiddle;
    for (int value = 0; value <= 8; ++value)
        if (anchorButton(*this, value)->isChecked()) anchor = value;
    mAnnotation->put_AnchorPoint(anchor);
    if (radioButton_indentleft->isChecked()) {
        mAnnotation->put_TextHorizAlign(1);
        mAnnotation->put_TextVertAlign(0);
    } else if (radioButton_indentmid->isChecked()) {
        mAnnotation->put_TextHorizAlign(2);
        mAnnotation->put_TextVertAlign(1);
    } else if (radioButton_indentright->isChecked()) {
        mAnnotation->put_TextHorizAlign(3);
        mAnnotation->put_TextVertAlign(3);
    }
    mAnnotation->put_LineSpace(lineEdit_linespace->text().toDouble());
    mAnnotation->put_WordSpace(lineEdit_wordspace->text().toDouble());
    mAnnotation->put_FontAngle(lineEdit_fontangle->text().toDouble());
    mAnnotation->put_WordOrientation(radioButton_verorientation->isChecked() ? 1 : 0);
}

void TMDialogAnnoAttributes::collectFont() {
    const QString family = fontComboBox->currentFont().family();
    QString english = toQString(TLFont::GetEnglishNameForKnownFont(toTLString(family)));
    qDebug() << "LabelStyle-english-font name:" << english;
    if (english.isEmpty()) english = family;
    mAnnotation->put_FontName(toTLString(english));
    mAnnotation->put_FontUnderline(checkBox_underline->isChecked());
    const int italic = comboBox_italicmode->currentIndex();
    mAnnotation->put_FontItalic(italic == 1 || italic == 2 ? italic : 0);
    mAnnotation->put_FontStrikeThrough(checkBox_strike->isChecked());
    mAnnotation->put_FontWeight(checkBox_bold->isChecked() ? 700 : 400);
    mAnnotation->put_FontHeight(comboBox_fontsize->currentText().toDouble(), TLTextElement::Points);
    mAnnotation->put_FontColor(pushButton_fontcolor->color());
}

void TMDialogAnnoAttributes::collectBoxAndOutline() {
    int guide = ArrowNone;
    for (int value = 0; value <= 4; ++value)
        if (guideButton(*this, value)->isChecked()) guide = value;
    mAnnotation->put_ArrowHeadType(guide);
    const int index = comboBox_bgstyle->currentIndex();
    if (index != 0) {
        const bool filled = checkBox_isfillback->isChecked();
        mAnnotation->put_BackgroundStyle(index == 1 ? (filled ? 1 : 3) : (filled ? 2 : 4));
        mAnnotation->put_BackColor(pushButton_bgcolor->color());
        mAnnotation->put_BoundColor(pushButton_bglinecolor->color());
        mAnnotation->put_BoundWidth(lineEdit_bglinewidth->text().toDouble());
    } else {
        mAnnotation->put_BackgroundStyle(BackgroundNone);
        // Without box and guide the stored line colour and width are left as they were.
        if (guide != ArrowNone) {
            mAnnotation->put_BoundColor(pushButton_bglinecolor->color());
            mAnnotation->put_BoundWidth(lineEdit_bglinewidth->text().toDouble());
        }
    }
    const double width = checkBox_drawoutline->isChecked()
                             ? std::max(1.0, lineEdit_outlinewidth->text().toDouble())
                             : 0.0;
    mAnnotation->put_FontPathWidth(width);
    mAnnotation->put_FontPathColor(pushButton_outlinecolor->color());
}
