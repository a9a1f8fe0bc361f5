#pragma once

#include <QDialog>
#include <QString>
#include <QStringList>

class QCloseEvent;
class QLineEdit;

namespace TMObjects {
class TLTool;
class TLToolBuddy;
}  // namespace TMObjects

// What every survey dialog shares: the text channel to its map tool, the pick of a point on the
// map while the dialog steps aside, the way it ends the tool, and the look of its window. The
// arithmetic and the form are each dialog's own.
class TMSurveyDialog : public QDialog {
public:
    explicit TMSurveyDialog(QWidget* parent = nullptr);

    // A dialog with a close button only, as all survey dialogs are.
    static Qt::WindowFlags surveyFlags();

    // Under the host's main window; setParent drops the window flags, so they are set again.
    void attachToMainWindow(TMObjects::TLToolBuddy* buddy);

    // The map was clicked while the dialog waits: kind 1 a press, kind 2 a double click. Only the
    // left button counts. A press that answers a pending pick fills the form and brings the
    // dialog back.
    void onMapClick(int button, int kind);

    // Escape, and a finished construction, end the tool, which deletes this dialog: nothing of
    // the dialog may be touched after this call.
    void reject() override;

    // The length fields take positive numbers only; the dot stands for any decimal separator.
    static void setLengthValidator(QLineEdit* edit);

    // A read number of the form, 0 for a text that is no number.
    static double numberOf(const QLineEdit* edit);

    bool wasClosed() const { return closed; }
    QString pendingPick() const { return pickCodeText; }

protected:
    // The close button of the window only hides the form; the tool stays in use.
    void closeEvent(QCloseEvent* event) override;

    void setSurveyTool(TMObjects::TLTool* tool) { surveyTool = tool; }
    TMObjects::TLTool* currentTool() const { return surveyTool; }

    // Tells the tool what the next click means and steps aside for it.
    void requestPick(int code);
    // Tells the tool what the next list means.
    void announce(int code);
    // The points, each "x,y", to the tool; false when it refused them.
    bool handOver(const QStringList& points);
    void warn(const QString& text);

    // The picked texts of a press answering the pending pick; true when the dialog used them.
    virtual bool takePick(const QString& x, const QString& y) = 0;

    QString pickCodeText;
    bool closed = false;

private:
    TMObjects::TLTool* surveyTool = nullptr;
};
