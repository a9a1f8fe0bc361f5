#pragma once

#include <QProgressDialog>
#include <functional>
#include <string>

// A busy indicator for long work on the user interface thread: a progress dialog without steps
// and without a cancel button, showing its text ("Wait") at once.
class TMWaitDialog : public QProgressDialog {
public:
    TMWaitDialog(const QString& text, QWidget* parent = nullptr);
    ~TMWaitDialog() override;

    // Shows the dialog, runs `work` here on the calling (user interface) thread, and hides the
    // dialog again however the work ends. What the work throws is caught to take the dialog
    // down, kept (`LastFailure`), and thrown on to the caller: the host's event dispatch reports
    // it, and no modal dialog is left standing over the map.
    void WaitFor(const std::function<void()>& work);
    const std::string& LastFailure() const { return mFailure; }

private:
    std::string mFailure;
};
