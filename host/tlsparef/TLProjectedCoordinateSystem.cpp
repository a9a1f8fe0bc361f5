#include "tlsparef/TLProjectedCoordinateSystem.h"

#include "tlsparef/TLProjObject.h"

namespace TMObjects {

TLProjectedCoordinateSystem::TLProjectedCoordinateSystem(const TLString& definition)
    : TLCoordinateSystem(definition) {}

TLProjectedCoordinateSystem::~TLProjectedCoordinateSystem() = default;

double TLProjectedCoordinateSystem::GetLinearUnitFactor() const {
    auto* crs = static_cast<PJ*>(ProjObject());
    if (!crs) return 0.0;
    PJ_CONTEXT* ctx = TLProjContext::Current()->Get();
    // A bound system (with +towgs84) or a compound one keeps its projection inside.
    TLProjObject projected(proj_clone(ctx, crs));
    for (int depth = 0; projected && depth < 4; ++depth) {
        const PJ_TYPE type = proj_get_type(projected.Get());
        if (type == PJ_TYPE_BOUND_CRS)
            projected = TLProjObject(proj_get_source_crs(ctx, projected.Get()));
        else if (type == PJ_TYPE_COMPOUND_CRS)
            projected = TLProjObject(proj_crs_get_sub_crs(ctx, projected.Get(), 0));
        else
            break;
    }
    if (!projected) return 0.0;
    const TLProjObject system(proj_crs_get_coordinate_system(ctx, projected.Get()));
    double factor = 0.0;
    if (!system || !proj_cs_get_axis_info(ctx, system.Get(), 0, nullptr, nullptr, nullptr, &factor,
                                          nullptr, nullptr, nullptr))
        return 0.0;
    return factor > 0.0 ? factor : 0.0;
}

}  // namespace TMObjects
