#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

#include "data/CcurrencyFunc.h"
#include "data/CdataManager.h"

using namespace TMObjects;

namespace {

// Two paths: (0 0, 10 0, 10 10) and (20 0, 30 0).
void buildTwoPaths(CvectorEntityBase& e) {
    e.entity_BeginPath();
    e.entity_BeginSegment(1);
    e.point_Add(0, 0);
    e.point_Add(10, 0);
    e.point_Add(10, 10);
    e.entity_BeginPath();
    e.entity_BeginSegment(1);
    e.point_Add(20, 0);
    e.point_Add(30, 0);
    e.entity_EndEntity();
}

void expectPath(const CvectorEntityBase& e, int path, int first, int count) {
    int f = -1, c = -1;
    ASSERT_TRUE(e.path_GetRange(path, f, c));
    EXPECT_EQ(f, first);
    EXPECT_EQ(c, count);
}

// A square ring of side `side` at (x, y), in the given direction.
void addSquare(CvectorEntityBase& e, double x, double y, double side, bool counterClockwise) {
    e.entity_BeginPath();
    if (counterClockwise) {
        e.point_Add(x, y);
        e.point_Add(x + side, y);
        e.point_Add(x + side, y + side);
        e.point_Add(x, y + side);
    } else {
        e.point_Add(x, y);
        e.point_Add(x, y + side);
        e.point_Add(x + side, y + side);
        e.point_Add(x + side, y);
    }
    e.point_Add(x, y);
}

}  // namespace

TEST(DataEntity, PathsHoldTheirVerticesAndTheBoxCoversThem) {
    CvectorEntityData e;
    buildTwoPaths(e);
    EXPECT_EQ(e.point_GetSize(), 5);
    EXPECT_EQ(e.path_GetSize(), 2);
    expectPath(e, 0, 0, 3);
    expectPath(e, 1, 3, 2);
    EXPECT_EQ(e.path_Of(2), 0);
    EXPECT_EQ(e.path_Of(3), 1);
    EXPECT_EQ(e.path_Of(5), -1);
    double x0, y0, x1, y1;
    ASSERT_TRUE(e.entity_GetBox(&x0, &y0, &x1, &y1));
    EXPECT_EQ(x0, 0);
    EXPECT_EQ(y0, 0);
    EXPECT_EQ(x1, 30);
    EXPECT_EQ(y1, 10);
    double x = 0, y = 0;
    EXPECT_FALSE(e.point_GetXY(5, &x, &y));
    EXPECT_FALSE(e.point_SetXY(-1, 1, 1));
}

TEST(DataEntity, InsertAfterAPathsLastVertexStaysInThatPath) {
    CvectorEntityData e;
    buildTwoPaths(e);
    // After vertex 2, the last of path 0.
    ASSERT_TRUE(e.point_InsertAt(3, 15, 15));
    expectPath(e, 0, 0, 4);
    expectPath(e, 1, 4, 2);
    ASSERT_TRUE(e.point_InsertAt(0, -5, 0));
    expectPath(e, 0, 0, 5);
    expectPath(e, 1, 5, 2);
    double x = 0, y = 0;
    e.point_GetXY(0, &x, &y);
    EXPECT_EQ(x, -5);
    EXPECT_FALSE(e.point_InsertAt(9, 0, 0));
}

TEST(DataEntity, RemovingAPathsVerticesEmptiesItAndEndEntityDropsIt) {
    CvectorEntityData e;
    buildTwoPaths(e);
    ASSERT_TRUE(e.point_RemoveAt(1));
    expectPath(e, 0, 0, 2);
    expectPath(e, 1, 2, 2);
    e.point_RemoveAt(3);
    e.point_RemoveAt(2);
    EXPECT_EQ(e.entity_EndEntity(), 1);
    expectPath(e, 0, 0, 2);
    EXPECT_FALSE(e.point_RemoveAt(2));
}

TEST(DataEntity, PointsAddedWithoutAPathOpenOne) {
    CvectorEntityData e;
    EXPECT_EQ(e.point_Add(), 0);
    EXPECT_EQ(e.point_Add(), 1);
    e.point_SetXY(1, 4, 5);
    EXPECT_EQ(e.path_GetSize(), 1);
    double x = 0, y = 0;
    e.point_GetXY(1, &x, &y);
    EXPECT_EQ(x, 4);
    EXPECT_EQ(y, 5);
}

TEST(DataEntity, RingsAreToldClosedAndTheirAreaTakesHolesOff) {
    CvectorEntityData e;
    e.entity_SetType(CvectorEntityBase::EntityPolygon);
    addSquare(e, 0, 0, 10, true);
    addSquare(e, 2, 2, 2, true);  // a hole, drawn the wrong way round
    e.entity_EndEntity();
    EXPECT_TRUE(e.entity_TestClose());
    EXPECT_DOUBLE_EQ(e.entity_CalcAcreage(0), 96.0);
    int first = 0, last = 0;
    EXPECT_EQ(e.point_GetPathClose01(7, first, last), 1);
    EXPECT_EQ(first, 5);
    EXPECT_EQ(last, 9);
    EXPECT_EQ(e.point_GetPathClose01(10, first, last), -1);

    CvectorEntityData line;
    buildTwoPaths(line);
    EXPECT_FALSE(line.entity_TestClose());
    EXPECT_EQ(line.point_GetPathClose01(1, first, last), 0);
    EXPECT_EQ(line.entity_CalcAcreage(0), 0.0);
}

TEST(DataEntity, ForeWardTurnsOuterRingsCounterClockwiseAndHolesClockwise) {
    CvectorEntityData e;
    e.entity_SetType(CvectorEntityBase::EntityPolygon);
    addSquare(e, 0, 0, 10, false);
    addSquare(e, 2, 2, 2, true);
    e.entity_EndEntity();
    e.entity_ForeWard();
    // Outer ring: (0 0) then (10 0); hole: (2 2) then (2 4).
    double x = 0, y = 0;
    e.point_GetXY(1, &x, &y);
    EXPECT_EQ(x, 10);
    EXPECT_EQ(y, 0);
    e.point_GetXY(6, &x, &y);
    EXPECT_EQ(x, 2);
    EXPECT_EQ(y, 4);
    EXPECT_DOUBLE_EQ(e.entity_CalcAcreage(0), 96.0);
}

TEST(DataEntity, AttributesFlagsAndHandles) {
    CvectorEntityData a;
    a.entity_SetAttribValueByName("name", "Main Road");
    a.entity_SetHandle(7);
    TLString value;
    EXPECT_TRUE(a.entity_GetAttribValueByName("name", value));
    EXPECT_EQ(value.toStdString(), "Main Road");
    EXPECT_FALSE(a.entity_GetAttribValueByName("NAME", value));
    EXPECT_TRUE(value.isEmpty());

    CvectorEntityData b;
    buildTwoPaths(b);
    b.entity_CopyHandle(&a);
    EXPECT_EQ(b.entity_GetHandle(), 7);
    EXPECT_EQ(b.entity_GetAttribValueByName("name").toStdString(), "Main Road");
    EXPECT_EQ(b.point_GetSize(), 5);  // the geometry stays its own

    CvectorEntityData c;
    c.entity_CopyData(&b);
    EXPECT_EQ(c.point_GetSize(), 5);
    EXPECT_EQ(c.path_GetSize(), 2);
    EXPECT_EQ(c.entity_GetHandle(), -1);  // geometry only
}

TEST(DataPackage, LayersAreNumberedFromOneAndWalkTheirLinkedEntities) {
    CvectorPackageData package;
    CRvLayers& layers = package.GetLayers();
    const int a = layers.add();
    const int b = layers.add();
    EXPECT_EQ(a, 1);
    EXPECT_EQ(b, 2);
    EXPECT_EQ(layers.getAt(0), nullptr);
    EXPECT_EQ(layers.FindLayerByID(b), layers.getAt(2));

    const int first = package.entity_Add(3);
    EXPECT_EQ(first, 0);
    layers.getAt(a)->AddChunk(package.entity_GetAt(0));
    layers.getAt(b)->AddChunk(package.entity_GetAt(1));
    layers.getAt(a)->AddChunk(package.entity_GetAt(2));
    CRvLayer* layer = layers.getAt(a);
    EXPECT_EQ(layer->GetChunkCount(), 2);
    EXPECT_EQ(layer->FirstChunk(), package.entity_GetAt(0));
    EXPECT_EQ(layer->NextChunk(), package.entity_GetAt(2));
    EXPECT_EQ(layer->NextChunk(), nullptr);

    // Removing an entity takes it out of its layer's walk.
    ASSERT_TRUE(package.entity_Remove(package.entity_GetAt(0)));
    EXPECT_EQ(layer->GetChunkCount(), 1);
    EXPECT_EQ(layer->FirstChunk(), package.entity_GetAt(1));
    EXPECT_FALSE(package.entity_RemoveAt(5));
}

TEST(DataPackage, SetAtCopiesTheWholeEntity) {
    CvectorPackageData package;
    CvectorEntityData source;
    buildTwoPaths(source);
    source.SetLayerID(2);
    source.entity_SetAttribValueByName("id", "4");
    source.GetSourceIds().Add(3);
    const int index = package.entity_Add(1);
    ASSERT_TRUE(package.entity_SetAt(index, &source));
    CvectorEntityData* stored = nullptr;
    ASSERT_TRUE(package.entity_GetAt(index, stored));
    EXPECT_NE(stored, &source);
    EXPECT_EQ(stored->point_GetSize(), 5);
    EXPECT_EQ(stored->GetLayerID(), 2);
    EXPECT_EQ(stored->entity_GetAttribValueByName("id").toStdString(), "4");
    EXPECT_EQ(stored->GetSourceIds().GetSize(), 1);
    EXPECT_FALSE(package.entity_SetAt(1, &source));
    EXPECT_FALSE(package.entity_GetAt(1, stored));
}

TEST(DataPackage, FieldsRefuseDuplicateNamesAndStandEbFieldFillsTheMissing) {
    CvectorPackageData package;
    CRvLayer* layer = package.GetLayers().getAt(package.GetLayers().add());
    CRvFields& fields = layer->GetFields();
    EXPECT_EQ(fields.AddAttField("id", "id", 4, 10, 1, 1, 0), 0);
    EXPECT_EQ(fields.AddAttField("NAME", "Name", 4, 50, 1, 1, 0), 1);
    EXPECT_EQ(fields.AddAttField("name", "again", 1, 4, 1, 1, 0), -1);
    EXPECT_EQ(fields.FindField("Name"), 1);
    EXPECT_EQ(fields.getAt(0)->length, 10);

    CvectorEntityData e;
    e.entity_SetAttribValueByName("id", "12");
    layer->StandEbField(&e);
    EXPECT_EQ(e.entity_GetAttribValueByName("id").toStdString(), "12");
    EXPECT_TRUE(e.entity_HasAttrib("NAME"));
    EXPECT_EQ(e.entity_GetAttribs().size(), 2u);
    EXPECT_EQ(e.GetLayerID(), layer->GetLayerID());

    CRvLayer* copy = package.CreateEbpLayer("roads", &fields);
    EXPECT_EQ(copy->GetLayerID(), 2);
    EXPECT_EQ(copy->GetLayerName().toStdString(), "roads");
    EXPECT_EQ(copy->GetFields().getSize(), 2);
    fields.removeAll();
    EXPECT_EQ(copy->GetFields().getSize(), 2);
}

TEST(DataManager, PackagesAreNumberedFromZeroAndReadByNumbers) {
    CdataManager manager;
    int size = -1;
    manager.package_GetSize(size);
    EXPECT_EQ(size, 0);
    EXPECT_EQ(manager.package_GetUpperBound(), -1);
    const int n = manager.package_Add();
    EXPECT_EQ(n, 0);
    EXPECT_EQ(manager.package_Add(), 1);
    EXPECT_EQ(manager.package_GetUpperBound(), 1);
    CvectorPackageData* package = nullptr;
    ASSERT_TRUE(manager.package_GetAt(n, package));
    EXPECT_EQ(package, manager.GetPackages().getAt(0));
    EXPECT_FALSE(manager.package_GetAt(2, package));
    EXPECT_EQ(package, nullptr);

    package = manager.package_GetAt(n);
    const int layer = package->GetLayers().add();
    const int index = package->entity_Add(1);
    CvectorEntityData* e = package->entity_GetAt(index);
    buildTwoPaths(*e);
    package->GetLayers().getAt(layer)->AddChunk(e);
    int count = 0;
    ASSERT_TRUE(manager.point_GetSize(n, index, count));
    EXPECT_EQ(count, 5);
    double x = 0, y = 0;
    ASSERT_TRUE(manager.point_GetXY(n, index, 2, x, y));
    EXPECT_EQ(x, 10);
    EXPECT_EQ(y, 10);
    EXPECT_FALSE(manager.point_GetSize(n, 1, count));
    EXPECT_EQ(count, 0);
    EXPECT_EQ(manager.layer_FieldGetLayerPt(n, layer), manager.entity_GetAttribLayerPT(n, index));
    EXPECT_NE(manager.layer_FieldGetLayerPt(n, layer), nullptr);
    EXPECT_EQ(manager.layer_FieldGetLayerPt(n, 2), nullptr);

    EXPECT_EQ(manager.getCurrPackageNo(), -1);
    manager.setCurrPackageNo(n);
    manager.setCurrEntityNo(index);
    manager.setCurrPointNo(2);
    EXPECT_EQ(manager.getCurrPackageNo(), n);
    EXPECT_EQ(manager.getCurrEntityNo(), index);
    EXPECT_EQ(manager.getCurrPointNo(), 2);
}

TEST(DataManager, LimitsHaveDefaultsAndRefuseNegativeOrNonFiniteValues) {
    CdataManager manager;
    EXPECT_EQ(manager.get_dPointLimit(), 1.0);
    EXPECT_EQ(manager.get_dLineLimit(), 1.0);
    EXPECT_EQ(manager.get_dAreaLimit(), 1.0);
    EXPECT_EQ(manager.get_dBoolLimit(), 0.1);
    manager.set_dPointLimit(0.25);
    manager.set_dLineLimit(-3);
    manager.set_dAreaLimit(NAN);
    manager.set_dBoolLimit(INFINITY);
    EXPECT_EQ(manager.get_dPointLimit(), 0.25);
    EXPECT_EQ(manager.get_dLineLimit(), 0.0);
    EXPECT_EQ(manager.get_dAreaLimit(), 0.0);
    EXPECT_EQ(manager.get_dBoolLimit(), 0.0);
}

TEST(DataCurrencyFunc, PlaneHelpers) {
    double qx = 0, qy = 0;
    EXPECT_DOUBLE_EQ(CcurrencyFunc::point_EdgeProject(5, 5, 0, 0, 10, 0, &qx, &qy), 0.5);
    EXPECT_EQ(qx, 5);
    EXPECT_EQ(qy, 0);
    EXPECT_DOUBLE_EQ(CcurrencyFunc::calcPointSpace(0, 0, 3, 4), 5.0);
}
