#include "tmgiscore/TmFormatCoordinateSystemInfo.h"

#include <QObject>
#include <QStringList>

#include "tlsparef/TLCoordinateSystem.h"

namespace {

QString qt(const TMObjects::TLString& text) {
    return QString::fromStdWString(text.toStdWString());
}

QString kindOf(TMObjects::TLCoordinateSystem* system) {
    if (system->IsGeographic()) return QObject::tr("geographic");
    if (system->IsProjected()) return QObject::tr("projected");
    return QObject::tr("other");
}

}  // namespace

QString TmFormatCoordinateSystemInfo::formatCoordinateSystemInfo(
    TMObjects::TLCoordinateSystem* system) {
    if (!system || !system->IsValid()) return QString();
    QStringList lines;
    lines << QObject::tr("Name: %1").arg(qt(system->GetName()));
    const QString code = qt(system->GetAuthorityCode());
    if (!code.isEmpty()) lines << QObject::tr("Authority: %1").arg(code);
    lines << QObject::tr("Type: %1").arg(kindOf(system));
    double a = 0.0, f = 0.0;
    if (system->GetEllipsoid(a, f)) {
        const QString inverse = f > 0.0 ? QString::number(1.0 / f, 'f', 9) : QObject::tr("sphere");
        lines << QObject::tr("Ellipsoid: a = %1 m, 1/f = %2").arg(a, 0, 'f', 3).arg(inverse);
    }
    lines << QObject::tr("Definition: %1").arg(qt(system->ExportToString()));
    return lines.join(QLatin1Char('\n'));
}
