#include "TLOpenProgress.h"

#include <QCoreApplication>
#include <QProgressDialog>
#include <algorithm>

namespace TMObjects {

namespace {

// Shorter openings show no dialog at all: it would only flash.
constexpr int kShowAfterMilliseconds = 400;
// QProgressDialog counts in int; the features are counted in thousands above that.
constexpr long long kIntSteps = 1000000000;

}  // namespace

TLOpenProgress::TLOpenProgress(QWidget* window, const QString& name)
    : mDialog(std::make_unique<QProgressDialog>(QObject::tr("Opening %1...").arg(name),
                                                QObject::tr("Cancel"), 0, 0, window)) {
    mDialog->setObjectName("openProgress");
    mDialog->setWindowTitle(QObject::tr("Open Data"));
    mDialog->setWindowModality(Qt::WindowModal);
    mDialog->setMinimumDuration(kShowAfterMilliseconds);
    mDialog->setAutoClose(false);
    mDialog->setAutoReset(false);
}

TLOpenProgress::~TLOpenProgress() = default;

TMWorkspace::Progress TLOpenProgress::Listener() {
    return [this](long long done, long long total) { return report(done, total); };
}

bool TLOpenProgress::report(long long done, long long total) {
    ++mReports;
    mRead = done;
    const long long scale = total > kIntSteps ? total / kIntSteps + 1 : 1;
    mDialog->setMaximum(int(std::max<long long>(total, done) / scale));
    mDialog->setValue(int(done / scale));
    mDialog->setLabelText(QObject::tr("Read %L1 of %L2 features...").arg(done).arg(total));
    // The window repaints and the Cancel button answers; input elsewhere waits for the end.
    QCoreApplication::processEvents();
    return !mDialog->wasCanceled();
}

}  // namespace TMObjects
