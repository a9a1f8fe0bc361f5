#include "survey/TMSurveyDialog.h"

#include <QCloseEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QRegExp>
#include <QRegExpValidator>

#include "TLToolText.h"
#include "tlmap/TLTool.h"
#include "tlmap/TLToolBuddy.h"

using TMObjects::toQString;
using TMObjects::toTLString;

namespace {

// The dot is not escaped on purpose: any one character serves as the decimal point. Zero and
// signs are refused.
const char* const kPositiveLength =
    "^(([0-9]+.[0-9]*[1-9][0-9]*)|([0-9]*[1-9][0-9]*.[0-9]+)|([0-9]*[1-9][0-9]*))$";

}  // namespace

TMSurveyDialog::TMSurveyDialog(QWidget* parent) : QDialog(parent) {}

Qt::WindowFlags TMSurveyDialog::surveyFlags() {
    return Qt::Dialog | Qt::WindowCloseButtonHint;
}

void TMSurveyDialog::attachToMainWindow(TMObjects::TLToolBuddy* buddy) {
    if (!buddy) return;
    setParent(QWidget::find(WId(buddy->MainWindowId())));
    setWindowFlags(surveyFlags());
}

void TMSurveyDialog::setLengthValidator(QLineEdit* edit) {
    edit->setValidator(new QRegExpValidator(QRegExp(kPositiveLength, Qt::CaseSensitive), edit));
}

double TMSurveyDialog::numberOf(const QLineEdit* edit) {
    return edit->text().toDouble();
}

void TMSurveyDialog::requestPick(int code) {
    pickCodeText = QString::number(code);
    announce(code);
    hide();
}

void TMSurveyDialog::announce(int code) {
    if (surveyTool) surveyTool->setInformation(toTLString(QString::number(code)));
}

bool TMSurveyDialog::handOver(const QStringList& points) {
    if (!surveyTool) return false;
    TMObjects::TLArray<TMObjects::TLString> list;
    for (const QString& point : points) list.Add(toTLString(point));
    return surveyTool->setMultipleInformation(list);
}

void TMSurveyDialog::onMapClick(int button, int kind) {
    if (button != 1 || !surveyTool) return;
    TMObjects::TLString x, y;
    surveyTool->processInformation(x, y);
    // A double click follows a press that has already picked: its texts are not used again.
    if (kind != 1) return;
    if (takePick(toQString(x), toQString(y))) show();
}

void TMSurveyDialog::reject() {
    if (surveyTool) surveyTool->deactivate();
}

void TMSurveyDialog::closeEvent(QCloseEvent* event) {
    // QDialog would reject here, which would end the tool.
    closed = true;
    event->accept();
}

void TMSurveyDialog::warn(const QString& text) {
    QMessageBox::warning(this, QObject::tr("Warning"), text, QMessageBox::Ok);
}
