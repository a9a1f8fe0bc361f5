#include "TLShellToolTable.h"

namespace TMObjects {

QStringList TLShellToolTable::Subsystems() {
    QStringList names;
    for (const Entry& entry : Entries())
        if (!names.contains(entry.subsystem)) names << entry.subsystem;
    return names;
}

int TLShellToolTable::IndexOf(const QString& className) {
    return TLToolTable::IndexOf(className.toStdString());
}

QString TLShellToolTable::StatusText(Status status) {
    switch (status) {
        case Built:
            return QStringLiteral("built");
        case NotBuilt:
            return QStringLiteral("not built");
        case NoBehaviour:
            return QStringLiteral("not built (no behaviour defined)");
    }
    return QString();
}

}  // namespace TMObjects
