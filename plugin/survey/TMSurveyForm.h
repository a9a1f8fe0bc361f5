#pragma once

#include <QString>

class QButtonGroup;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QWidget;

// The pieces the survey forms are built of, so that every form names, sizes and styles them
// alike: named widgets, the point pick button, a point row and the sketch box.
class TMSurveyForm {
public:
    static QLineEdit* edit(QWidget* parent, const char* name);
    static QPushButton* button(QWidget* parent, const char* name, const QString& text);
    static QRadioButton* radio(QWidget* parent, const char* name, const QString& text);
    static QGroupBox* box(QWidget* parent, const char* name, const QString& title);
    static QLabel* label(QWidget* parent, const char* text, const char* name = nullptr);
    // The style sheet that shows `image`, applied only when the image is among the resources:
    // without it the widget keeps its plain look rather than asking for it at every paint.
    static void applyImage(QWidget* widget, const char* image, const QString& style);
    // The small pick button with its icon, when the icon is among the resources.
    static QPushButton* pickButton(QWidget* parent, const char* name, const QString& text);
    // The sketch box; the image is applied only when it is among the resources.
    static QGroupBox* sketch(QWidget* parent, const QString& title, const char* image);
    // One row of a point: its pick button, then x and y, each with its unit.
    static void addPointRow(QGridLayout* grid, int row, QPushButton* pick, QLineEdit* x,
                            QLineEdit* y);
    // Two choices, the first checked, with the ids 0 and 1.
    static QButtonGroup* choice(QWidget* owner, QRadioButton* first, QRadioButton* second);
};
