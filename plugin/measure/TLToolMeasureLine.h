#pragma once

#include <QPointer>
#include <vector>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLTool.h"
#include "tlsparef/TLEllipseCalcFunc.h"

class TMDisplayLength;

namespace TMObjects {

class TLRubberBand;
class TLCoordinateSystem;

// Measures a polyline clicked in on the map, segment by segment; read-only. A geographic map is
// measured on its ellipsoid in metres, a projected one in the plane, one without a system in
// plain map units.
class TL_ACTIONEX_EXPORT TLToolMeasureLine : public TLTool {
public:
    TLToolMeasureLine();
    explicit TLToolMeasureLine(TLToolBuddy* buddy);
    ~TLToolMeasureLine() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;

    // The distance between two map points, choosing plane or ellipsoid by the map's system;
    // updates `units` and `ellipsoidal` to match.
    double measureLine(double x1, double y1, double x2, double y2);
    TLString getProjStr();
    double rad(double degrees);
    double computeFlatDis(double x1, double y1, double x2, double y2);
    // A haversine on a sphere of the WGS 84 equatorial radius; arguments in degrees, latitude
    // before longitude of each point.
    double computeEllipseDis(double a, double b, double c, double d);
    void createRubberBand();
    void stopMeasuring();
    void DisplayMeasureLength(double value, TLTool* tool, bool show);
    TLPoint snapPoint(TLPoint device);

    // What the dialog lists: the clicked vertices, the unit of the values, and the length of
    // one clicked segment as the last measureLine chose to take it.
    const std::vector<TLPoint>& clickedPoints() const { return points; }
    int measureUnits() const { return units; }
    bool isEllipsoidal() const { return ellipsoidal == 1; }
    double segmentLength(const TLPoint& from, const TLPoint& to);

private:
    // The system loaded from `projection`, and its ellipsoid, made again only when the text
    // changes: every pointer move measures.
    TLCoordinateSystem* loadedSystem();
    void addLiveBand(const TLPoint& pointer);

    TLRubberBand* rubberBand = nullptr;
    TLString projection;
    // Guarded: the dialog is a child of the main window and may go with it.
    QPointer<TMDisplayLength> dialog;
    std::vector<TLPoint> points;
    int units = 0;
    int ellipsoidal = 0;
    TLSnapTool snapTool;

    TLString loadedProjection;
    bool systemLoaded = false;
    TLRefPtr<TLCoordinateSystem> system;
    TLEllipseParameterNew parameter;
};

}  // namespace TMObjects
