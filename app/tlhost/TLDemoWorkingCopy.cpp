#include "TLDemoWorkingCopy.h"

#include <QFile>
#include <QFileInfo>
#include <QObject>

namespace TMObjects {

bool TLDemoWorkingCopy::Make(const QString& demo, QString& error) {
    if (!mFolder.isValid()) {
        error =
            QObject::tr("No folder for a working copy of the demo: %1").arg(mFolder.errorString());
        return false;
    }
    const QString copy = mFolder.filePath(QFileInfo(demo).fileName());
    QFile source(demo);
    if (!source.copy(copy)) {
        error =
            QObject::tr("The demo could not be copied to %1: %2").arg(copy, source.errorString());
        return false;
    }
    // A copy of a read-only file is read-only too; the working copy is there to be written.
    QFile(copy).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                               QFile::ReadOther);
    mPath = copy;
    return true;
}

QString TLDemoWorkingCopy::Note(const QString& demo) const {
    return QObject::tr(
               "The demo opened as a working copy (%1): edits saved go there, and %2 "
               "stays as it is.")
        .arg(mPath, demo);
}

}  // namespace TMObjects
