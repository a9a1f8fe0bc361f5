#include "hostkit/TLGuardedApplication.h"

#include <exception>
#include <iostream>

namespace TMObjects {

namespace {

TLGuardedApplication::FailureHandler& handler() {
    static TLGuardedApplication::FailureHandler installed;
    return installed;
}

}  // namespace

TLGuardedApplication::TLGuardedApplication(int& argc, char** argv) : QApplication(argc, argv) {}

TLGuardedApplication::~TLGuardedApplication() {
    handler() = nullptr;
}

bool TLGuardedApplication::notify(QObject* receiver, QEvent* event) {
    bool handled = false;
    Guard([&] { handled = QApplication::notify(receiver, event); });
    return handled;
}

void TLGuardedApplication::SetFailureHandler(FailureHandler failureHandler) {
    handler() = std::move(failureHandler);
}

bool TLGuardedApplication::Guard(const std::function<void()>& call) {
    try {
        call();
        return true;
    } catch (const std::exception& e) {
        report(e.what());
    } catch (...) {
        report("unknown failure");
    }
    return false;
}

void TLGuardedApplication::report(const std::string& what) {
    if (handler())
        handler()(what);
    else
        std::cerr << "a dialog failed: " << what << "\n";
}

}  // namespace TMObjects
