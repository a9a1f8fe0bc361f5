#include "data/CPolygonOverlay.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>

#include "data/CvectorEntityData.h"
#include "data/CvectorPackageData.h"

namespace TMObjects {

namespace {

using GeometryPtr = CEntityGeos::GeometryPtr;

struct PreparedDeleter {
    void operator()(const GEOSPreparedGeometry* g) const {
        GEOSPreparedGeom_destroy_r(TLGeosContext::Handle(), g);
    }
};
using PreparedPtr = std::unique_ptr<const GEOSPreparedGeometry, PreparedDeleter>;

// A collection that borrows its members: GEOS takes ownership, so they are cloned in.
GeometryPtr collect(const std::vector<const GEOSGeometry*>& members) {
    GEOSContextHandle_t h = TLGeosContext::Handle();
    std::vector<GEOSGeometry*> clones;
    for (const GEOSGeometry* g : members) clones.push_back(GEOSGeom_clone_r(h, g));
    return GeometryPtr(GEOSGeom_createCollection_r(h, GEOS_GEOMETRYCOLLECTION, clones.data(),
                                                   unsigned(clones.size())));
}

void sortLargestFirst(std::vector<CPolygonOverlay::Piece>& pieces) {
    std::stable_sort(pieces.begin(), pieces.end(),
                     [](const CPolygonOverlay::Piece& a, const CPolygonOverlay::Piece& b) {
                         return CEntityGeos::Area(a.shape.get()) > CEntityGeos::Area(b.shape.get());
                     });
}

bool sameArea(double a, double b) {
    return std::fabs(a - b) <= 1e-12 * std::max(std::fabs(a), std::fabs(b));
}

}  // namespace

void CPolygonOverlay::AddPolygon(const CvectorEntityData* entity, bool keepFaces) {
    ++mCount;
    GeometryPtr polygon = CEntityGeos::PolygonOf(entity);
    if (polygon) mInputs.push_back({mCount, entity, std::move(polygon), keepFaces});
}

void CPolygonOverlay::AddCutter(const CvectorEntityData* entity) {
    if (GeometryPtr lines = CEntityGeos::LinesOf(entity)) mCutters.push_back(std::move(lines));
}

std::vector<CPolygonOverlay::Piece> CPolygonOverlay::facesOf(
    const std::vector<const GEOSGeometry*>& lines, const std::vector<const Input*>& inputs) const {
    GEOSContextHandle_t h = TLGeosContext::Handle();
    std::vector<Piece> faces;
    GeometryPtr all = collect(lines);
    GeometryPtr noded(all ? GEOSUnaryUnion_r(h, all.get()) : nullptr);
    if (!noded) return faces;
    const GEOSGeometry* nodedRaw = noded.get();
    GeometryPtr polygons(GEOSPolygonize_r(h, &nodedRaw, 1));
    if (!polygons) return faces;

    std::vector<PreparedPtr> prepared;
    for (const Input* input : inputs) prepared.emplace_back(GEOSPrepare_r(h, input->polygon.get()));
    for (int i = 0; i < GEOSGetNumGeometries_r(h, polygons.get()); ++i) {
        const GEOSGeometry* face = GEOSGetGeometryN_r(h, polygons.get(), i);
        GeometryPtr inside(GEOSPointOnSurface_r(h, face));
        if (!inside) continue;
        Piece piece;
        for (std::size_t k = 0; k < inputs.size(); ++k)
            if (GEOSPreparedIntersects_r(h, prepared[k].get(), inside.get()) == 1)
                piece.sources.push_back(inputs[k]->number);
        if (piece.sources.empty()) continue;
        piece.shape = GeometryPtr(GEOSGeom_clone_r(h, face));
        faces.push_back(std::move(piece));
    }
    return faces;
}

std::vector<CPolygonOverlay::Piece> CPolygonOverlay::Overlay() const {
    GEOSContextHandle_t h = TLGeosContext::Handle();
    std::vector<GeometryPtr> boundaries;
    std::vector<const GEOSGeometry*> lines;
    std::vector<const Input*> inputs;
    for (const Input& input : mInputs) {
        boundaries.emplace_back(GEOSBoundary_r(h, input.polygon.get()));
        lines.push_back(boundaries.back().get());
        inputs.push_back(&input);
    }
    for (const GeometryPtr& cutter : mCutters) lines.push_back(cutter.get());

    // Faces of one source list are joined where they share an edge: the outlines of inputs that
    // do not reach inside the list's area must not cut it.
    std::map<std::vector<int>, std::vector<const GEOSGeometry*>> groups;
    std::vector<Piece> faces = facesOf(lines, inputs);
    for (const Piece& face : faces) groups[face.sources].push_back(face.shape.get());

    std::vector<Piece> pieces;
    for (const auto& [sources, members] : groups) {
        const Input* origin = nullptr;
        for (int number : sources)
            for (const Input& input : mInputs)
                if (!origin && input.number == number && input.keep) origin = &input;
        if (!origin) continue;
        GeometryPtr members_(collect(members));
        GeometryPtr joined(GEOSUnaryUnion_r(h, members_.get()));
        std::vector<Piece> group;
        for (GeometryPtr& shape : CEntityGeos::SinglePolygons(joined.get()))
            group.push_back({sources, std::move(shape), origin->entity, false});
        sortLargestFirst(group);
        for (Piece& piece : group) pieces.push_back(std::move(piece));
    }

    // An input of one piece that is all of it and all its own was not cut: it keeps its vertices.
    for (const Input& input : mInputs) {
        int count = 0;
        Piece* only = nullptr;
        for (Piece& piece : pieces)
            if (std::count(piece.sources.begin(), piece.sources.end(), input.number)) {
                ++count;
                only = &piece;
            }
        if (count == 1 && only->sources.size() == 1 &&
            sameArea(CEntityGeos::Area(only->shape.get()), CEntityGeos::Area(input.polygon.get())))
            only->whole = true;
    }
    return pieces;
}

std::vector<CPolygonOverlay::Piece> CPolygonOverlay::CutByLines() const {
    GEOSContextHandle_t h = TLGeosContext::Handle();
    std::vector<Piece> pieces;
    for (const Input& input : mInputs) {
        if (!input.keep) continue;
        GeometryPtr boundary(GEOSBoundary_r(h, input.polygon.get()));
        std::vector<const GEOSGeometry*> lines{boundary.get()};
        for (const GeometryPtr& cutter : mCutters) lines.push_back(cutter.get());
        std::vector<Piece> faces = facesOf(lines, {&input});
        for (Piece& face : faces) face.origin = input.entity;
        sortLargestFirst(faces);
        if (faces.size() == 1 && sameArea(CEntityGeos::Area(faces.front().shape.get()),
                                          CEntityGeos::Area(input.polygon.get())))
            faces.front().whole = true;
        for (Piece& face : faces) pieces.push_back(std::move(face));
    }
    return pieces;
}

void CPolygonOverlay::Store(std::vector<Piece>& pieces, const CvectorPackageData* firstPackage,
                            CvectorPackageData* out) {
    const CRvLayer* model = nullptr;
    if (!pieces.empty() && firstPackage)
        model = firstPackage->GetLayers().FindLayerByID(pieces.front().origin->GetLayerID());
    CRvLayer* layer = out->CreateEbpLayer(model ? model->GetLayerName() : TLString(),
                                          model ? &model->GetFields() : nullptr);
    layer->SetLayerType(CvectorEntityBase::EntityPolygon);
    if (model) layer->SetDataSource(model->GetDataSource());
    for (Piece& piece : pieces) {
        CvectorEntityData* entity = out->entity_GetAt(out->entity_Add(1));
        if (piece.whole)
            entity->entity_CopyData(piece.origin);
        else
            CEntityGeos::FillPolygon(piece.shape.get(), entity);
        entity->entity_CopyHandle(piece.origin);
        for (int source : piece.sources) entity->GetSourceIds().Add(source);
        layer->AddChunk(entity);
    }
}

}  // namespace TMObjects
