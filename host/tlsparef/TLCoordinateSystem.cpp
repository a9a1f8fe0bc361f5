#include "tlsparef/TLCoordinateSystem.h"

#include <string>

#include "tlsparef/TLProjObject.h"

namespace TMObjects {

struct TLCoordinateSystem::Impl {
    TLProjObject crs;
};

namespace {

PJ_CONTEXT* currentContext() {
    return TLProjContext::Current()->Get();
}

// PROJ reads a bare PROJ string as an operation; the map's text form omits "+type=crs", so ask
// for a system explicitly.
std::string asCrsDefinition(std::string text) {
    const bool projString = text[0] == '+' || text.find("+proj=") != std::string::npos ||
                            text.find("+init=") != std::string::npos;
    if (projString && text.find("+type=crs") == std::string::npos) text += " +type=crs";
    return text;
}

TLProjObject createCrs(const TLString& definition) {
    const std::string text = definition.trim().toStdString();
    if (text.empty()) return {};
    TLProjObject object(proj_create(currentContext(), asCrsDefinition(text).c_str()));
    if (!object || !proj_is_crs(object.Get())) return {};
    return object;
}

// The part of a system that decides its kind: the source of a bound system (one carrying
// +towgs84 or +nadgrids), the horizontal member of a compound one.
TLProjObject horizontalPart(PJ* crs) {
    PJ_CONTEXT* ctx = currentContext();
    TLProjObject current(proj_clone(ctx, crs));
    for (int depth = 0; current && depth < 4; ++depth) {
        const PJ_TYPE type = proj_get_type(current.Get());
        if (type == PJ_TYPE_BOUND_CRS) {
            current = TLProjObject(proj_get_source_crs(ctx, current.Get()));
        } else if (type == PJ_TYPE_COMPOUND_CRS) {
            current = TLProjObject(proj_crs_get_sub_crs(ctx, current.Get(), 0));
        } else {
            break;
        }
    }
    return current;
}

bool isGeographicType(PJ_TYPE type) {
    return type == PJ_TYPE_GEOGRAPHIC_2D_CRS || type == PJ_TYPE_GEOGRAPHIC_3D_CRS ||
           type == PJ_TYPE_GEOGRAPHIC_CRS;
}

TLString textOrEmpty(const char* text) {
    return text ? TLString(std::string(text)) : TLString();
}

}  // namespace

TLCoordinateSystem::TLCoordinateSystem(const TLString& definition)
    : mDefinition(definition), mImpl(std::make_unique<Impl>()) {
    mImpl->crs = createCrs(definition);
}

TLCoordinateSystem::TLCoordinateSystem(const TLString& definition, std::unique_ptr<Impl> impl)
    : mDefinition(definition), mImpl(std::move(impl)) {}

TLCoordinateSystem::~TLCoordinateSystem() = default;

bool TLCoordinateSystem::IsValid() const {
    return bool(mImpl->crs);
}

void* TLCoordinateSystem::ProjObject() const {
    return mImpl->crs.Get();
}

TLString TLCoordinateSystem::ExportToString() const {
    if (!IsValid()) return {};
    const char* text = proj_as_proj_string(currentContext(), mImpl->crs.Get(), PJ_PROJ_5, nullptr);
    // Some systems (vertical parts, exotic operations) have no PROJ string; WKT still carries
    // the ellipsoid and loads back.
    if (!text) return ExportToWkt();
    std::string result(text);
    const std::string marker = " +type=crs";
    const auto at = result.find(marker);
    if (at != std::string::npos) result.erase(at, marker.size());
    return TLString(result);
}

TLString TLCoordinateSystem::ExportToWkt() const {
    if (!IsValid()) return {};
    const char* const options[] = {"MULTILINE=NO", nullptr};
    return textOrEmpty(proj_as_wkt(currentContext(), mImpl->crs.Get(), PJ_WKT2_2019, options));
}

bool TLCoordinateSystem::IsGeographic() const {
    if (!IsValid()) return false;
    const TLProjObject horizontal = horizontalPart(mImpl->crs.Get());
    return horizontal && isGeographicType(proj_get_type(horizontal.Get()));
}

bool TLCoordinateSystem::IsProjected() const {
    if (!IsValid()) return false;
    const TLProjObject horizontal = horizontalPart(mImpl->crs.Get());
    return horizontal && proj_get_type(horizontal.Get()) == PJ_TYPE_PROJECTED_CRS;
}

bool TLCoordinateSystem::IsSame(TLCoordinateSystem* other) const {
    if (!other || !IsValid() || !other->IsValid()) return false;
    if (other == this) return true;
    // Axis order is normalised everywhere in the host, so "EPSG:4326" (latitude first) and a
    // longitude-first definition of the same datum describe the same map coordinates.
    return proj_is_equivalent_to_with_ctx(currentContext(), mImpl->crs.Get(),
                                          other->mImpl->crs.Get(),
                                          PJ_COMP_EQUIVALENT_EXCEPT_AXIS_ORDER_GEOGCRS) != 0;
}

TLString TLCoordinateSystem::GetName() const {
    if (!IsValid()) return {};
    return textOrEmpty(proj_get_name(mImpl->crs.Get()));
}

TLString TLCoordinateSystem::GetAuthorityCode() const {
    if (!IsValid()) return {};
    const char* authority = proj_get_id_auth_name(mImpl->crs.Get(), 0);
    const char* code = proj_get_id_code(mImpl->crs.Get(), 0);
    if (!authority || !code) return {};
    return TLString(std::string(authority) + ":" + code);
}

bool TLCoordinateSystem::GetEllipsoid(double& semiMajor, double& flattening) const {
    if (!IsValid()) return false;
    PJ_CONTEXT* ctx = currentContext();
    const TLProjObject ellipsoid(proj_get_ellipsoid(ctx, mImpl->crs.Get()));
    if (!ellipsoid) return false;
    double a = 0.0, b = 0.0, inverseFlattening = 0.0;
    int computed = 0;
    if (!proj_ellipsoid_get_parameters(ctx, ellipsoid.Get(), &a, &b, &computed,
                                       &inverseFlattening)) {
        return false;
    }
    if (!(a > 0.0) || !(b > 0.0)) return false;
    semiMajor = a;
    // The defining inverse flattening is exact; (a - b) / a would lose the last digits of b.
    flattening = inverseFlattening != 0.0 ? 1.0 / inverseFlattening : (a - b) / a;
    return true;
}

TLRefPtr<TLCoordinateSystem> TLCoordinateSystem::GetGeographicSystem() const {
    if (!IsValid()) return {};
    auto impl = std::make_unique<Impl>();
    impl->crs = TLProjObject(proj_crs_get_geodetic_crs(currentContext(), mImpl->crs.Get()));
    if (!impl->crs || !isGeographicType(proj_get_type(impl->crs.Get()))) return {};
    TLRefPtr<TLCoordinateSystem> geographic(new TLCoordinateSystem(TLString(), std::move(impl)));
    geographic->mDefinition = geographic->ExportToWkt();
    return geographic;
}

}  // namespace TMObjects
