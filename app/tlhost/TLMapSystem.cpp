#include "TLMapSystem.h"

#include <QObject>
#include <cmath>

#include "TLShellText.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"

namespace TMObjects {

namespace {

QString codeOrDefinition(TLCoordinateSystem* system) {
    const QString code = ToQString(system->GetAuthorityCode());
    return code.isEmpty() ? ToQString(system->GetDefinition()) : code;
}

}  // namespace

QString TLMapSystem::Describe(TLMapView* view) {
    TLRefPtr<TLCoordinateSystem> system = view->GetMap()->GetSpatialReference();
    if (!system) return QObject::tr("none");
    const QString code = ToQString(system->GetAuthorityCode());
    const QString name = ToQString(system->GetName());
    return code.isEmpty() ? name : QStringLiteral("%1 %2").arg(code, name);
}

QStringList TLMapSystem::Choices(TLMapView* view) {
    QStringList choices;
    const auto offer = [&choices](const QString& choice) {
        if (!choice.isEmpty() && !choices.contains(choice)) choices << choice;
    };
    TLMap* map = view->GetMap();
    if (TLRefPtr<TLCoordinateSystem> system = map->GetSpatialReference())
        offer(codeOrDefinition(system.get()));
    for (const TLRefPtr<TLLayer>& layer : map->GetLayers(true))
        if (TLRefPtr<TLCoordinateSystem> system = layer->GetSpatialReference())
            offer(codeOrDefinition(system.get()));
    offer(QStringLiteral("EPSG:4326"));
    offer(QStringLiteral("EPSG:3857"));
    return choices;
}

bool TLMapSystem::Apply(TLMapView* view, const QString& definition, QString& error) {
    TLRefPtr<TLCoordinateSystem> system =
        TLSpatialObjectFactory::LoadCoordinateSystem(ToTLString(definition.trimmed()));
    if (!system || !system->IsValid()) {
        error =
            QObject::tr("%1 names no coordinate system that PROJ knows.").arg(definition.trimmed());
        return false;
    }
    TLMap* map = view->GetMap();
    TLRefPtr<TLCoordinateSystem> old = map->GetSpatialReference();
    TLRect shown = view->GetVisibleRect();
    map->SetSpatialReference(system);
    // What was on screen, in the new system's coordinates; without an old system there is no
    // telling where that was, and the whole map is shown.
    if (old && !shown.IsEmpty()) {
        view->GetDisplay()->ToMapRect(old.get(), shown);
        if (!shown.IsEmpty() && std::isfinite(shown.Width()) && std::isfinite(shown.Height())) {
            view->ZoomToBound(shown);
            return true;
        }
    }
    TLRect full = map->GetFullExtent();
    if (!full.IsEmpty()) view->ZoomToBound(full);
    return true;
}

}  // namespace TMObjects
