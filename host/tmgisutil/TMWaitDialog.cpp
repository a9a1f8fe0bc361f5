#include "tmgisutil/TMWaitDialog.h"

#include <QCoreApplication>
#include <exception>

TMWaitDialog::TMWaitDialog(const QString& text, QWidget* parent) : QProgressDialog(parent) {
    setObjectName(QStringLiteral("TMWaitDialog"));
    setLabelText(text);
    setWindowTitle(text);
    setCancelButton(nullptr);
    setRange(0, 0);
    setMinimumDuration(0);
    setAutoClose(false);
    setAutoReset(false);
    // The work holds the event loop while it runs, so nothing can be clicked meanwhile anyway;
    // not modal, the dialog is no modal dialog for scripted answers to meet.
    setWindowModality(Qt::NonModal);
}

TMWaitDialog::~TMWaitDialog() = default;

void TMWaitDialog::WaitFor(const std::function<void()>& work) {
    mFailure.clear();
    show();
    // Painted before the work starts, which holds the event loop until it ends.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    try {
        if (work) work();
    } catch (const std::exception& failure) {
        mFailure = failure.what();
        hide();
        throw;
    } catch (...) {
        mFailure = "unknown failure";
        hide();
        throw;
    }
    hide();
}
