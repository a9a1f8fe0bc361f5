#pragma once

#include <QApplication>
#include <functional>
#include <string>

namespace TMObjects {

// The application object of a program that hosts the plugin. The dispatcher catches what a tool
// throws from an event entry; this catches the rest: what escapes a handler the toolkit calls on
// its own, a dialog's slot above all (a button's clicked, a list's currentIndexChanged, a timer).
// Such a failure is handed to the failure handler, which reports it and rolls back an editor
// operation left open (the dispatcher's ReportFailure), and the event loop goes on as if the
// event had been ignored. Without a handler the failure is written to the standard error.
class TLGuardedApplication : public QApplication {
public:
    using FailureHandler = std::function<void(const std::string& what)>;

    TLGuardedApplication(int& argc, char** argv);
    ~TLGuardedApplication() override;

    bool notify(QObject* receiver, QEvent* event) override;

    static void SetFailureHandler(FailureHandler handler);
    // Runs a call as the toolkit runs an event handler: a failure is caught and reported as
    // one from a dialog. The session runner clicks dialog buttons through it. False when the
    // call failed.
    static bool Guard(const std::function<void()>& call);

private:
    static void report(const std::string& what);
};

}  // namespace TMObjects
