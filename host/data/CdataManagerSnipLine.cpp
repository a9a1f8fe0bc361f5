#include "data/CLineSnipper.h"
#include "data/CdataManager.h"

namespace TMObjects {

namespace {

CLineSnipper::Path pathOf(const CvectorEntityBase& entity, int path) {
    int first = 0, count = 0;
    entity.path_GetRange(path, first, count);
    CLineSnipper::Path out;
    for (int i = first; i < first + count; ++i) {
        CLineSnipper::Vertex v{0, 0, 0};
        entity.point_GetXYZ(i, &v.x, &v.y, &v.z);
        out.push_back(v);
    }
    return out;
}

struct Piece {
    const CvectorEntityData* target;
    int source;  // 1-based index of the target among the target layer's entities
    CLineSnipper::Path path;
};

}  // namespace

int CdataManager::lineLayerSniplineLayer(int package, int targetLayer, int cutterLayer, int mode) {
    CvectorPackageData* data = mPackages.getAt(package);
    CRvLayer* targets = data ? data->GetLayers().getAt(targetLayer) : nullptr;
    CRvLayer* cutters = data ? data->GetLayers().getAt(cutterLayer) : nullptr;
    if (!targets || !cutters || targets == cutters || mode != 1) return -1;

    CLineSnipper snipper(mPointLimit, mLineLimit);
    for (CvectorEntityData* cutter = cutters->FirstChunk(); cutter; cutter = cutters->NextChunk())
        snipper.AddCutter(*cutter);
    if (!snipper.HasCutters()) return -1;

    std::vector<Piece> pieces;
    bool divided = false;
    int source = 0;
    for (CvectorEntityData* target = targets->FirstChunk(); target; target = targets->NextChunk()) {
        ++source;
        if (target->entity_GetType() == CvectorEntityBase::EntityPolygon) continue;
        for (int k = 0; k < target->path_GetSize(); ++k) {
            std::vector<CLineSnipper::Path> paths;
            divided = snipper.SplitPath(pathOf(*target, k), paths) || divided;
            for (CLineSnipper::Path& path : paths)
                pieces.push_back({target, source, std::move(path)});
        }
    }
    if (!divided) return -1;

    const int result = mPackages.add();
    CvectorPackageData* out = mPackages.getAt(result);
    CRvLayer* layer = out->CreateEbpLayer(targets->GetLayerName(), &targets->GetFields());
    layer->SetLayerType(CvectorEntityBase::EntityLine);
    layer->SetDataSource(targets->GetDataSource());
    for (const Piece& piece : pieces) {
        CvectorEntityData* entity = out->entity_GetAt(out->entity_Add(1));
        entity->entity_SetType(CvectorEntityBase::EntityLine);
        entity->entity_SetHasZ(piece.target->entity_HasZ());
        entity->entity_BeginPath();
        entity->entity_BeginSegment(1);
        for (const CLineSnipper::Vertex& v : piece.path) entity->point_Add(v.x, v.y, v.z);
        entity->entity_EndEntity();
        entity->entity_CopyHandle(piece.target);
        entity->GetSourceIds().Add(piece.source);
        layer->AddChunk(entity);
    }
    return result;
}

}  // namespace TMObjects
