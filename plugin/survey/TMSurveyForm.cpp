#include "survey/TMSurveyForm.h"

#include <QButtonGroup>
#include <QFile>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

// The artwork is not always among the resources; without it the widget keeps its plain look
// rather than asking for a missing image at every paint.
void setImageStyle(QWidget* widget, const QString& image, const QString& style) {
    if (QFile::exists(image)) widget->setStyleSheet(style);
}

}  // namespace

QLineEdit* TMSurveyForm::edit(QWidget* parent, const char* name) {
    auto* line = new QLineEdit(parent);
    line->setObjectName(QLatin1String(name));
    return line;
}

QPushButton* TMSurveyForm::button(QWidget* parent, const char* name, const QString& text) {
    auto* push = new QPushButton(text, parent);
    push->setObjectName(QLatin1String(name));
    return push;
}

QRadioButton* TMSurveyForm::radio(QWidget* parent, const char* name, const QString& text) {
    auto* radioButton = new QRadioButton(text, parent);
    radioButton->setObjectName(QLatin1String(name));
    return radioButton;
}

QGroupBox* TMSurveyForm::box(QWidget* parent, const char* name, const QString& title) {
    auto* group = new QGroupBox(title, parent);
    group->setObjectName(QLatin1String(name));
    return group;
}

QLabel* TMSurveyForm::label(QWidget* parent, const char* text, const char* name) {
    auto* result = new QLabel(QObject::tr(text), parent);
    if (name) result->setObjectName(QLatin1String(name));
    return result;
}

void TMSurveyForm::applyImage(QWidget* widget, const char* image, const QString& style) {
    setImageStyle(widget, QLatin1String(image), style);
}

QPushButton* TMSurveyForm::pickButton(QWidget* parent, const char* name, const QString& text) {
    QPushButton* pick = button(parent, name, text);
    pick->setFixedSize(21, 23);
    setImageStyle(pick, ":/icon/Choose-point.png",
                  "background-image: url(:/icon/Choose-point.png);");
    return pick;
}

QGroupBox* TMSurveyForm::sketch(QWidget* parent, const QString& title, const char* image) {
    QGroupBox* group = box(parent, "mGroupBoxSketchMap", title);
    auto* picture = new QLabel(group);
    picture->setObjectName("mLabelSketchMap");
    picture->setMinimumSize(161, 141);
    const QString path = QLatin1String(image);
    setImageStyle(picture, path, "border-image: url(" + path + ");");
    auto* layout = new QVBoxLayout(group);
    layout->addWidget(picture);
    return group;
}

void TMSurveyForm::addPointRow(QGridLayout* grid, int row, QPushButton* pick, QLineEdit* x,
                               QLineEdit* y) {
    QWidget* parent = grid->parentWidget();
    grid->addWidget(pick, row, 0);
    grid->addWidget(label(parent, "Abscissa"), row, 1);
    grid->addWidget(x, row, 2);
    grid->addWidget(label(parent, "m"), row, 3);
    grid->addWidget(label(parent, "Ordinate"), row, 4);
    grid->addWidget(y, row, 5);
    grid->addWidget(label(parent, "m"), row, 6);
}

QButtonGroup* TMSurveyForm::choice(QWidget* owner, QRadioButton* first, QRadioButton* second) {
    auto* group = new QButtonGroup(owner);
    group->addButton(first, 0);
    group->addButton(second, 1);
    first->setChecked(true);
    return group;
}
