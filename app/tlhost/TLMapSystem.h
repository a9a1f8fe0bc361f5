#pragma once

#include <QString>
#include <QStringList>

namespace TMObjects {

class TLMapView;

// The coordinate system the map is shown in. Any layer in another system is projected for
// display (and tools digitize in the map's system, projecting at commit). Changing it keeps the
// part of the world on screen, seen through the new projection.
class TLMapSystem {
public:
    // "EPSG:28992 Amersfoort / RD New", or "none" for a map without a system.
    static QString Describe(TLMapView* view);
    // The systems worth offering: the map's own, each layer's, then WGS 84 and Web Mercator;
    // each once, as "EPSG:n" where there is a code.
    static QStringList Choices(TLMapView* view);
    // Sets the map's system from "EPSG:n", WKT or a PROJ string. False, with the reason, when
    // PROJ does not know it.
    static bool Apply(TLMapView* view, const QString& definition, QString& error);
};

}  // namespace TMObjects
