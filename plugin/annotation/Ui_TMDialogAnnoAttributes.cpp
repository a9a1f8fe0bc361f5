#include "annotation/Ui_TMDialogAnnoAttributes.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFontComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>
#include <QVBoxLayout>

#include "tmcontrolbase/TMColorBtn.h"

namespace {

template <typename W>
W* named(W* widget, const char* name) {
    widget->setObjectName(QLatin1String(name));
    return widget;
}

QString tr(const char* text) {
    return QObject::tr(text);
}

QLabel* makeLabel(QWidget* parent, const char* name, const char* text) {
    return named(new QLabel(tr(text), parent), name);
}

QRadioButton* radio(QWidget* parent, const char* name, const char* text) {
    return named(new QRadioButton(tr(text), parent), name);
}

QCheckBox* check(QWidget* parent, const char* name, const char* text) {
    return named(new QCheckBox(tr(text), parent), name);
}

QGroupBox* group(QWidget* parent, const char* name, const char* title) {
    return named(new QGroupBox(tr(title), parent), name);
}

QPlainTextEdit* plainText(QWidget* parent, const char* name) {
    auto* edit = named(new QPlainTextEdit(parent), name);
    edit->setMinimumHeight(40);
    edit->setMaximumHeight(80);
    return edit;
}

TMColorBtn* colorButton(QWidget* parent, const char* name) {
    auto* button = named(new TMColorBtn(parent), name);
    button->setMinimumSize(50, 23);
    button->setAutoDefault(false);
    return button;
}

QLineEdit* lineEdit(QWidget* parent, const char* name) {
    return named(new QLineEdit(parent), name);
}

// A label, a colour button and its line edit in one row of the grid.
void colorRow(QGridLayout* grid, int row, QLabel* caption, TMColorBtn* button, QLineEdit* edit) {
    if (caption) grid->addWidget(caption, row, 0);
    grid->addWidget(button, row, 1);
    grid->addWidget(edit, row, 2);
}

}  // namespace

void Ui_TMDialogAnnoAttributes::setupUi(QDialog* dialog) {
    dialog->setObjectName(QStringLiteral("TMDialogAnnoAttributes"));
    dialog->setWindowTitle(tr("Annotation attributes"));
    dialog->resize(907, 678);
    dialog->setWindowFlags(dialog->windowFlags() & ~Qt::WindowContextHelpButtonHint);
    auto* columns = new QHBoxLayout;
    columns->addWidget(buildTextColumn(dialog), 1);
    columns->addWidget(buildLayoutColumn(dialog), 1);
    columns->addWidget(buildStyleColumn(dialog), 1);
    pushButton_ok = named(new QPushButton(tr("OK"), dialog), "pushButton_ok");
    pushButton_cancel = named(new QPushButton(tr("Cancel"), dialog), "pushButton_cancel");
    for (QPushButton* button : {pushButton_ok, pushButton_cancel}) {
        button->setAutoDefault(false);
        button->setDefault(false);
    }
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(pushButton_ok);
    buttons->addWidget(pushButton_cancel);
    auto* whole = new QVBoxLayout(dialog);
    whole->addLayout(columns, 1);
    whole->addLayout(buttons);
}

QWidget* Ui_TMDialogAnnoAttributes::buildTextColumn(QDialog* dialog) {
    auto* column = new QWidget(dialog);
    groupBox_text = group(column, "groupBox_text", "Annotation text");
    label_numerator = makeLabel(groupBox_text, "label_numerator",
                                "Complete content or numerator of fraction mode");
    textEdit_content = plainText(groupBox_text, "textEdit_content");
    label_13 = makeLabel(groupBox_text, "label_13", "Denominator(You can use it in fraction mode)");
    textEdit_denominator = plainText(groupBox_text, "textEdit_denominator");
    textEdit_contentdis = named(new QTextEdit(groupBox_text), "textEdit_contentdis");
    textEdit_contentdis->setPlaceholderText(tr("Note: Single-line mode supports line breaks!"));
    textEdit_contentdis->setEnabled(false);
    textEdit_contentdis->setReadOnly(true);
    textEdit_contentdis->setMaximumHeight(26);
    textEdit_contentdis->setStyleSheet(QStringLiteral("color:#FF0000"));
    auto* text = new QVBoxLayout(groupBox_text);
    for (QWidget* w : std::initializer_list<QWidget*>{label_numerator, textEdit_content, label_13,
                                                      textEdit_denominator, textEdit_contentdis})
        text->addWidget(w);
    groupBox_texttype = group(column, "groupBox_texttype", "Annotation type");
    radioButton_single = radio(groupBox_texttype, "radioButton_single", "Single row");
    radioButton_fraction = radio(groupBox_texttype, "radioButton_fraction", "Fraction");
    radioButton_single->setChecked(true);
    auto* type = new QHBoxLayout(groupBox_texttype);
    type->addWidget(radioButton_single);
    type->addWidget(radioButton_fraction);
    auto* layout = new QVBoxLayout(column);
    layout->addWidget(groupBox_text);
    layout->addWidget(groupBox_texttype);
    layout->addStretch(1);
    return column;
}

QWidget* Ui_TMDialogAnnoAttributes::buildLayoutColumn(QDialog* dialog) {
    auto* column = new QWidget(dialog);
    groupBox_anchorpos = group(column, "groupBox_anchorpos", "Anchor point");
    radioButton_lt = radio(groupBox_anchorpos, "radioButton_lt", "Upper left");
    radioButton_mt = radio(groupBox_anchorpos, "radioButton_mt", "Upper middle");
    radioButton_rt = radio(groupBox_anchorpos, "radioButton_rt", "Upper right");
    radioButton_lm = radio(groupBox_anchorpos, "radioButton_lm", "Left middle");
    radioButton_mm = radio(groupBox_anchorpos, "radioButton_mm", "Middle");
    radioButton_rm = radio(groupBox_anchorpos, "radioButton_rm", "Right middle");
    radioButton_lb = radio(groupBox_anchorpos, "radioButton_lb", "Left down");
    radioButton_tb = radio(groupBox_anchorpos, "radioButton_tb", "Down middle");
    radioButton_rb = radio(groupBox_anchorpos, "radioButton_rb", "Right down");
    radioButton_mm->setChecked(true);
    auto* anchors = new QGridLayout(groupBox_anchorpos);
    const QRadioButton* grid[3][3] = {{radioButton_lt, radioButton_mt, radioButton_rt},
                                      {radioButton_lm, radioButton_mm, radioButton_rm},
                                      {radioButton_lb, radioButton_tb, radioButton_rb}};
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c) anchors->addWidget(const_cast<QRadioButton*>(grid[r][c]), r, c);

    groupBox_2 = group(column, "groupBox_2", "Orientation");
    radioButton_horiorientation = radio(groupBox_2, "radioButton_horiorientation", "Horizontal");
    radioButton_verorientation = radio(groupBox_2, "radioButton_verorientation", "Vertical");
    radioButton_horiorientation->setChecked(true);
    label_5 = makeLabel(groupBox_2, "label_5", "Rotate angle:");
    lineEdit_fontangle = lineEdit(groupBox_2, "lineEdit_fontangle");
    lineEdit_fontangle->setPlaceholderText(tr("Range:-360-360"));
    auto* orientation = new QGridLayout(groupBox_2);
    orientation->addWidget(radioButton_horiorientation, 0, 0);
    orientation->addWidget(radioButton_verorientation, 0, 1);
    orientation->addWidget(label_5, 1, 0);
    orientation->addWidget(lineEdit_fontangle, 1, 1);

    groupBox_indenttype = group(column, "groupBox_indenttype", "Alignment mode");
    radioButton_indentleft = radio(groupBox_indenttype, "radioButton_indentleft", "Left");
    radioButton_indentmid = radio(groupBox_indenttype, "radioButton_indentmid", "Middle");
    radioButton_indentright = radio(groupBox_indenttype, "radioButton_indentright", "Right");
    radioButton_indentleft->setChecked(true);
    auto* alignment = new QHBoxLayout(groupBox_indenttype);
    alignment->addWidget(radioButton_indentleft);
    alignment->addWidget(radioButton_indentmid);
    alignment->addWidget(radioButton_indentright);

    groupBox_5 = group(column, "groupBox_5", "Spacing");
    label = makeLabel(groupBox_5, "label", "Line space:");
    lineEdit_linespace = lineEdit(groupBox_5, "lineEdit_linespace");
    label_2 = makeLabel(groupBox_5, "label_2", "Word space:");
    lineEdit_wordspace = lineEdit(groupBox_5, "lineEdit_wordspace");
    auto* spacing = new QGridLayout(groupBox_5);
    spacing->addWidget(label, 0, 0);
    spacing->addWidget(lineEdit_linespace, 0, 1);
    spacing->addWidget(label_2, 1, 0);
    spacing->addWidget(lineEdit_wordspace, 1, 1);

    auto* layout = new QVBoxLayout(column);
    for (QWidget* w : std::initializer_list<QWidget*>{groupBox_anchorpos, groupBox_2,
                                                      groupBox_indenttype, groupBox_5})
        layout->addWidget(w);
    layout->addStretch(1);
    return column;
}

void Ui_TMDialogAnnoAttributes::buildFontBox(QDialog* dialog) {
    fontComboBox = named(new QFontComboBox(groupBox_4), "fontComboBox");
    fontComboBox->setFontFilters(QFontComboBox::ScalableFonts);
    fontComboBox->setMaximumWidth(150);
    pushButton_fontcolor = colorButton(groupBox_4, "pushButton_fontcolor");
    lineEdit_fontcolor = lineEdit(groupBox_4, "lineEdit_fontcolor");
    label_3 = makeLabel(groupBox_4, "label_3", "Font unit:");
    comboBox_fontunit = named(new QComboBox(groupBox_4), "comboBox_fontunit");
    comboBox_fontunit->addItem(tr("Pound"));
    label_4 = makeLabel(groupBox_4, "label_4", "Font size:");
    comboBox_fontsize = named(new QComboBox(groupBox_4), "comboBox_fontsize");
    comboBox_fontsize->setEditable(true);
    for (int size : QFontDatabase::standardSizes())
        comboBox_fontsize->addItem(QString::number(double(size), 'g', 6));
    label_11 = makeLabel(groupBox_4, "label_11", "Italic:");
    comboBox_italicmode = named(new QComboBox(groupBox_4), "comboBox_italicmode");
    comboBox_italicmode->addItems({tr("Normal"), tr("Right oblique"), tr("Left oblique ")});
    checkBox_bold = check(groupBox_4, "checkBox_bold", "Bold");
    checkBox_underline = check(groupBox_4, "checkBox_underline", "Underline");
    checkBox_strike = check(groupBox_4, "checkBox_strike", "Strikethrough");
    auto* font = new QGridLayout(groupBox_4);
    font->addWidget(fontComboBox, 0, 0);
    font->addWidget(pushButton_fontcolor, 0, 1);
    font->addWidget(lineEdit_fontcolor, 0, 2);
    font->addWidget(label_3, 1, 0);
    font->addWidget(comboBox_fontunit, 1, 1, 1, 2);
    font->addWidget(label_4, 2, 0);
    font->addWidget(comboBox_fontsize, 2, 1, 1, 2);
    font->addWidget(label_11, 3, 0);
    font->addWidget(comboBox_italicmode, 3, 1, 1, 2);
    font->addWidget(checkBox_bold, 4, 0);
    font->addWidget(checkBox_underline, 4, 1);
    font->addWidget(checkBox_strike, 4, 2);
    (void)dialog;
}

void Ui_TMDialogAnnoAttributes::buildOutlineBox(QDialog*) {
    checkBox_drawoutline =
        check(groupBox_outline, "checkBox_drawoutline", "Whether to draw the edges ");
    label_9 = makeLabel(groupBox_outline, "label_9", "Outline color:");
    pushButton_outlinecolor = colorButton(groupBox_outline, "pushButton_outlinecolor");
    lineEdit_outlinecolor = lineEdit(groupBox_outline, "lineEdit_outlinecolor");
    label_10 = makeLabel(groupBox_outline, "label_10", "Outline width(Pixel):");
    lineEdit_outlinewidth = lineEdit(groupBox_outline, "lineEdit_outlinewidth");
    auto* outline = new QGridLayout(groupBox_outline);
    outline->addWidget(checkBox_drawoutline, 0, 0, 1, 3);
    colorRow(outline, 1, label_9, pushButton_outlinecolor, lineEdit_outlinecolor);
    outline->addWidget(label_10, 2, 0);
    outline->addWidget(lineEdit_outlinewidth, 2, 1, 1, 2);
}

void Ui_TMDialogAnnoAttributes::buildBackgroundBoxes(QDialog*) {
    label_12 = makeLabel(groupBox_6, "label_12", "Style type:");
    comboBox_bgstyle = named(new QComboBox(groupBox_6), "comboBox_bgstyle");
    comboBox_bgstyle->addItems({tr("None"), tr("Rectangle"), tr("Rounded rectangle ")});
    checkBox_isfillback = check(groupBox_6, "checkBox_isfillback", "Whether to fill");
    label_6 = makeLabel(groupBox_6, "label_6", "Background color:");
    pushButton_bgcolor = colorButton(groupBox_6, "pushButton_bgcolor");
    lineEdit_bgcolor = lineEdit(groupBox_6, "lineEdit_bgcolor");
    auto* box = new QGridLayout(groupBox_6);
    box->addWidget(label_12, 0, 0);
    box->addWidget(comboBox_bgstyle, 0, 1, 1, 2);
    box->addWidget(checkBox_isfillback, 1, 0, 1, 3);
    colorRow(box, 2, label_6, pushButton_bgcolor, lineEdit_bgcolor);

    radioButton_guide_none = radio(groupBox, "radioButton_guide_none", "None");
    radioButton_guide_single = radio(groupBox, "radioButton_guide_single", "Single line");
    radioButton_guide_arrow = radio(groupBox, "radioButton_guide_arrow", "Border arrow");
    radioButton_guide_underline = radio(groupBox, "radioButton_guide_underline", "Line-underline");
    radioButton_guide_nounderline =
        radio(groupBox, "radioButton_guide_nounderline", "Line-no underline");
    radioButton_guide_none->setChecked(true);
    auto* guide = new QGridLayout(groupBox);
    guide->addWidget(radioButton_guide_none, 0, 0);
    guide->addWidget(radioButton_guide_single, 0, 1);
    guide->addWidget(radioButton_guide_arrow, 1, 0);
    guide->addWidget(radioButton_guide_underline, 1, 1);
    guide->addWidget(radioButton_guide_nounderline, 2, 0);

    label_7 = makeLabel(groupBox_3, "label_7", "Line color:");
    pushButton_bglinecolor = colorButton(groupBox_3, "pushButton_bglinecolor");
    lineEdit_bglinecolor = lineEdit(groupBox_3, "lineEdit_bglinecolor");
    label_8 = makeLabel(groupBox_3, "label_8", "Line width(px):");
    lineEdit_bglinewidth = lineEdit(groupBox_3, "lineEdit_bglinewidth");
    label_14 = makeLabel(groupBox_3, "label_14", "1px=0.264583mm");
    auto* line = new QGridLayout(groupBox_3);
    colorRow(line, 0, label_7, pushButton_bglinecolor, lineEdit_bglinecolor);
    line->addWidget(label_8, 1, 0);
    line->addWidget(lineEdit_bglinewidth, 1, 1);
    line->addWidget(label_14, 1, 2);
}

QWidget* Ui_TMDialogAnnoAttributes::buildStyleColumn(QDialog* dialog) {
    auto* column = new QWidget(dialog);
    groupBox_4 = group(column, "groupBox_4", "Font style");
    groupBox_outline = group(column, "groupBox_outline", "Outline");
    groupBox_6 = group(column, "groupBox_6", "Background box style");
    groupBox = group(column, "groupBox", "Type of guidance");
    groupBox_3 = group(column, "groupBox_3", "Background border or guidance line style");
    buildFontBox(dialog);
    buildOutlineBox(dialog);
    buildBackgroundBoxes(dialog);
    auto* layout = new QVBoxLayout(column);
    for (QWidget* w : std::initializer_list<QWidget*>{groupBox_4, groupBox_outline, groupBox_6,
                                                      groupBox, groupBox_3})
        layout->addWidget(w);
    layout->addStretch(1);
    return column;
}
