#include <algorithm>

#include "data/CEntityGeos.h"
#include "data/CdataManager.h"

namespace TMObjects {

namespace {

const int kMergeTouching = 2;

using GeometryPtr = CEntityGeos::GeometryPtr;

struct Input {
    int number;
    const CvectorEntityData* entity;
    GeometryPtr polygon;
};

GeometryPtr collectionOf(const std::vector<Input>& inputs, std::size_t skip) {
    GEOSContextHandle_t h = TLGeosContext::Handle();
    std::vector<GEOSGeometry*> clones;
    for (std::size_t i = 0; i < inputs.size(); ++i)
        if (i != skip) clones.push_back(GEOSGeom_clone_r(h, inputs[i].polygon.get()));
    return GeometryPtr(GEOSGeom_createCollection_r(h, GEOS_GEOMETRYCOLLECTION, clones.data(),
                                                   unsigned(clones.size())));
}

// Each polygon's vertices and edges pulled onto the others' vertices within the limit, so that
// outlines drawn a hair apart become one shared edge.
void snapTogether(std::vector<Input>& inputs, double limit) {
    if (!(limit > 0.0) || inputs.size() < 2) return;
    GEOSContextHandle_t h = TLGeosContext::Handle();
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        GeometryPtr others = collectionOf(inputs, i);
        GeometryPtr snapped(GEOSSnap_r(h, inputs[i].polygon.get(), others.get(), limit));
        if (!snapped) continue;
        if (GEOSisValid_r(h, snapped.get()) != 1) snapped.reset(GEOSMakeValid_r(h, snapped.get()));
        if (snapped) inputs[i].polygon = std::move(snapped);
    }
}

}  // namespace

int CdataManager::currDataTopoOperate(int operation, double, double pointLimit, int, int, int) {
    CvectorPackageData* package = mPackages.getAt(mCurrPackage);
    if (!package || operation != kMergeTouching) return -1;
    GEOSContextHandle_t h = TLGeosContext::Handle();

    std::vector<Input> inputs;
    for (int i = 0; i < package->entity_GetSize(); ++i) {
        const CvectorEntityData* entity = package->entity_GetAt(i);
        if (GeometryPtr polygon = CEntityGeos::PolygonOf(entity))
            inputs.push_back({i + 1, entity, std::move(polygon)});
    }
    snapTogether(inputs, pointLimit);
    GeometryPtr all = collectionOf(inputs, inputs.size());
    GeometryPtr merged(all ? GEOSUnaryUnion_r(h, all.get()) : nullptr);

    struct Piece {
        std::vector<int> sources;
        GeometryPtr shape;
    };
    std::vector<Piece> pieces;
    for (GeometryPtr& shape : CEntityGeos::SinglePolygons(merged.get())) {
        Piece piece{{}, std::move(shape)};
        for (const Input& input : inputs) {
            GeometryPtr inside(GEOSPointOnSurface_r(h, input.polygon.get()));
            if (inside && GEOSIntersects_r(h, piece.shape.get(), inside.get()) == 1)
                piece.sources.push_back(input.number);
        }
        if (!piece.sources.empty()) pieces.push_back(std::move(piece));
    }
    std::stable_sort(pieces.begin(), pieces.end(), [](const Piece& a, const Piece& b) {
        return a.sources.front() < b.sources.front();
    });

    const int result = mPackages.add();
    CvectorPackageData* out = mPackages.getAt(result);
    package = mPackages.getAt(mCurrPackage);
    const CvectorEntityData* model =
        pieces.empty() ? nullptr : package->entity_GetAt(pieces.front().sources.front() - 1);
    const CRvLayer* modelLayer =
        model ? package->GetLayers().FindLayerByID(model->GetLayerID()) : nullptr;
    CRvLayer* layer = out->CreateEbpLayer(modelLayer ? modelLayer->GetLayerName() : TLString(),
                                          modelLayer ? &modelLayer->GetFields() : nullptr);
    layer->SetLayerType(CvectorEntityBase::EntityPolygon);
    for (const Piece& piece : pieces) {
        CvectorEntityData* entity = out->entity_GetAt(out->entity_Add(1));
        CEntityGeos::FillPolygon(piece.shape.get(), entity);
        entity->entity_CopyHandle(package->entity_GetAt(piece.sources.front() - 1));
        for (int source : piece.sources) entity->GetSourceIds().Add(source);
        layer->AddChunk(entity);
    }
    return result;
}

}  // namespace TMObjects
