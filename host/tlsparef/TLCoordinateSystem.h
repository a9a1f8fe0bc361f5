#pragma once

#include <memory>

#include "tlbase/TLRefBase.h"
#include "tlbase/TLString.h"

namespace TMObjects {

// A coordinate system on PROJ. Axis order is always x = easting/longitude, y = northing/latitude.
class TLCoordinateSystem : public TLRefBase {
public:
    // From "EPSG:n", WKT or a PROJ string; IsValid() tells whether PROJ understood it.
    explicit TLCoordinateSystem(const TLString& definition);
    ~TLCoordinateSystem() override;

    // The text form: a PROJ string ("+proj=... +ellps=..."), from which the ellipsoid can be read.
    virtual TLString ExportToString() const;
    virtual bool IsGeographic() const;
    // True when both describe the same system (equivalent up to names and axis order).
    virtual bool IsSame(TLCoordinateSystem* other) const;

    bool IsValid() const;
    // A map projection (easting, northing); false for geographic and invalid systems.
    bool IsProjected() const;
    TLString GetDefinition() const { return mDefinition; }
    TLString GetName() const;
    TLString ExportToWkt() const;
    // "EPSG:n" when the system has an authority code, else empty.
    TLString GetAuthorityCode() const;
    // The underlying PJ*, for the host's projector. Opaque to callers.
    void* ProjObject() const;
    // The ellipsoid of the system's datum. False when the system has none (an engineering one).
    bool GetEllipsoid(double& semiMajor, double& flattening) const;
    // The geographic system the coordinates are based on (the system itself when it is
    // geographic); empty when there is none.
    TLRefPtr<TLCoordinateSystem> GetGeographicSystem() const;

private:
    struct Impl;
    TLCoordinateSystem(const TLString& definition, std::unique_ptr<Impl> impl);
    TLString mDefinition;
    std::unique_ptr<Impl> mImpl;
};

class TLSpatialObjectFactory {
public:
    // An empty pointer when the text names no system PROJ knows.
    static TLRefPtr<TLCoordinateSystem> LoadCoordinateSystem(const TLString& text);
};

}  // namespace TMObjects
