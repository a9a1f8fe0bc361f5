#include <cmath>

#include "tlsparef/TLCoordinateSystem.h"
#include "tlsparef/TLEllipseCalcFunc.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

namespace {

constexpr double kWgs84SemiMajor = 6378137.0;
constexpr double kWgs84Flattening = 1.0 / 298.257223563;

// GeographicLib accepts any flattening below 1 (prolate ones too), but a text with a broken
// ellipsoid is better measured on WGS 84 than refused.
bool usableEllipsoid(double a, double f) {
    return std::isfinite(a) && a > 0.0 && std::isfinite(f) && f >= 0.0 && f < 1.0;
}

}  // namespace

TLEllipseParameterNew::TLEllipseParameterNew() : mA(kWgs84SemiMajor), mF(kWgs84Flattening) {}

void TLEllipseParameterNew::calcParameter(TLString projection) {
    mA = kWgs84SemiMajor;
    mF = kWgs84Flattening;
    mGeographic = true;
    mProjection = projection;
    mToLonLat.reset();

    TLRefPtr<TLCoordinateSystem> system(new TLCoordinateSystem(projection));
    if (!system->IsValid()) return;
    double a = 0.0, f = 0.0;
    if (system->GetEllipsoid(a, f) && usableEllipsoid(a, f)) {
        mA = a;
        mF = f;
    }
    mGeographic = system->IsGeographic();
    if (mGeographic) return;

    TLRefPtr<TLCoordinateSystem> geographic = system->GetGeographicSystem();
    auto toLonLat = std::make_shared<TLGeometryProject>();
    if (geographic && toLonLat->SetPrj(system.get(), geographic.get(), nullptr)) {
        mToLonLat = toLonLat;
    }
}

bool TLEllipseParameterNew::ToLonLat(double& x, double& y) const {
    if (mGeographic) return std::isfinite(x) && std::isfinite(y) && std::fabs(y) <= 90.0;
    return mToLonLat && mToLonLat->ProjXY(x, y);
}

}  // namespace TMObjects
