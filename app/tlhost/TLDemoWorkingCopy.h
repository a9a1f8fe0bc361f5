#pragma once

#include <QString>
#include <QTemporaryDir>

namespace TMObjects {

// The demo GeoPackage as the shell opens it: a fresh copy in a folder of its own that lives as
// long as this object, so that Ctrl+S writes into the copy and demo/demo.gpkg (which the headless
// demo replays its sessions on) stays as it was made.
class TLDemoWorkingCopy {
public:
    // Copies `demo`; false, with the reason, when the folder or the copy cannot be made.
    bool Make(const QString& demo, QString& error);
    QString Path() const { return mPath; }
    // The history line that tells the user where the edits go.
    QString Note(const QString& demo) const;

private:
    QTemporaryDir mFolder{QDir::tempPath() + QStringLiteral("/tlhost-demo-XXXXXX")};
    QString mPath;
};

}  // namespace TMObjects
