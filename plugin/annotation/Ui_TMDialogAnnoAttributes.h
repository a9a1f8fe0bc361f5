#pragma once

class QCheckBox;
class QComboBox;
class QDialog;
class QFontComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QTextEdit;
class QWidget;
class TMColorBtn;

// The form of the annotation attributes dialog: every widget by its object name, laid out in
// three columns (text and type; anchor, orientation, alignment, spacing; font, outline, box and
// guide) over the OK and Cancel row.
class Ui_TMDialogAnnoAttributes {
public:
    void setupUi(QDialog* dialog);

    QGroupBox* groupBox_text;
    QLabel* label_numerator;
    QPlainTextEdit* textEdit_content;
    QLabel* label_13;
    QPlainTextEdit* textEdit_denominator;
    QTextEdit* textEdit_contentdis;
    QGroupBox* groupBox_texttype;
    QRadioButton* radioButton_single;
    QRadioButton* radioButton_fraction;
    QGroupBox* groupBox_anchorpos;
    QRadioButton* radioButton_lt;
    QRadioButton* radioButton_rt;
    QRadioButton* radioButton_rb;
    QRadioButton* radioButton_lb;
    QRadioButton* radioButton_mt;
    QRadioButton* radioButton_rm;
    QRadioButton* radioButton_tb;
    QRadioButton* radioButton_lm;
    QRadioButton* radioButton_mm;
    QGroupBox* groupBox_2;
    QRadioButton* radioButton_verorientation;
    QRadioButton* radioButton_horiorientation;
    QLabel* label_5;
    QLineEdit* lineEdit_fontangle;
    QGroupBox* groupBox_indenttype;
    QRadioButton* radioButton_indentleft;
    QRadioButton* radioButton_indentmid;
    QRadioButton* radioButton_indentright;
    QGroupBox* groupBox_5;
    QLabel* label;
    QLineEdit* lineEdit_linespace;
    QLabel* label_2;
    QLineEdit* lineEdit_wordspace;
    QGroupBox* groupBox_4;
    QFontComboBox* fontComboBox;
    TMColorBtn* pushButton_fontcolor;
    QLineEdit* lineEdit_fontcolor;
    QLabel* label_3;
    QComboBox* comboBox_fontunit;
    QLabel* label_4;
    QComboBox* comboBox_fontsize;
    QLabel* label_11;
    QComboBox* comboBox_italicmode;
    QCheckBox* checkBox_bold;
    QCheckBox* checkBox_underline;
    QCheckBox* checkBox_strike;
    QGroupBox* groupBox_outline;
    QCheckBox* checkBox_drawoutline;
    QLabel* label_9;
    TMColorBtn* pushButton_outlinecolor;
    QLineEdit* lineEdit_outlinecolor;
    QLabel* label_10;
    QLineEdit* lineEdit_outlinewidth;
    QGroupBox* groupBox_6;
    QLabel* label_12;
    QComboBox* comboBox_bgstyle;
    QCheckBox* checkBox_isfillback;
    QLabel* label_6;
    TMColorBtn* pushButton_bgcolor;
    QLineEdit* lineEdit_bgcolor;
    QGroupBox* groupBox;
    QRadioButton* radioButton_guide_none;
    QRadioButton* radioButton_guide_single;
    QRadioButton* radioButton_guide_arrow;
    QRadioButton* radioButton_guide_underline;
    QRadioButton* radioButton_guide_nounderline;
    QGroupBox* groupBox_3;
    QLabel* label_7;
    TMColorBtn* pushButton_bglinecolor;
    QLineEdit* lineEdit_bglinecolor;
    QLabel* label_8;
    QLineEdit* lineEdit_bglinewidth;
    QLabel* label_14;
    QPushButton* pushButton_ok;
    QPushButton* pushButton_cancel;

private:
    QWidget* buildTextColumn(QDialog* dialog);
    QWidget* buildLayoutColumn(QDialog* dialog);
    QWidget* buildStyleColumn(QDialog* dialog);
    void buildFontBox(QDialog* dialog);
    void buildOutlineBox(QDialog* dialog);
    void buildBackgroundBoxes(QDialog* dialog);
};
