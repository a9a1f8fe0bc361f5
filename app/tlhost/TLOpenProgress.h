#pragma once

#include <QString>
#include <memory>

#include "tmgis/TMWorkspace.h"

class QProgressDialog;
class QWidget;

namespace TMObjects {

// The progress of opening a data source: a bar in a dialog over the window that appears once the
// reading takes longer than a moment, counts the features read, and can cancel. While it runs
// the window goes on drawing itself (events are taken between two reports), but takes no input:
// nothing may change the map half-way through.
class TLOpenProgress {
public:
    // `name` is what the user knows the source by (a file's name, a connection without its
    // password).
    TLOpenProgress(QWidget* window, const QString& name);
    ~TLOpenProgress();
    TLOpenProgress(const TLOpenProgress&) = delete;
    TLOpenProgress& operator=(const TLOpenProgress&) = delete;

    TMWorkspace::Progress Listener();
    // Reports seen, and the last count: for tests and for the history.
    int Reports() const { return mReports; }
    long long Read() const { return mRead; }
    QProgressDialog* Dialog() const { return mDialog.get(); }

private:
    bool report(long long done, long long total);

    std::unique_ptr<QProgressDialog> mDialog;
    int mReports = 0;
    long long mRead = 0;
};

}  // namespace TMObjects
