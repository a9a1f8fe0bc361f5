#pragma once

namespace TMObjects {

// Plane helpers of the data library, shared by the editing tools and the data operations.
class CcurrencyFunc {
public:
    // The foot (qx, qy) of the perpendicular from (px, py) on the line through a and b, and the
    // parameter t of that foot along a to b (0 at a, 1 at b). A segment of no length has its
    // foot at a and t = 0, so that a click on a doubled vertex still finds it.
    static double point_EdgeProject(double px, double py, double ax, double ay, double bx,
                                    double by, double* qx, double* qy);
    // The plane distance of two points.
    static double calcPointSpace(double x1, double y1, double x2, double y2);

    // How segment a-b meets segment c-d, within `tolerance`; where they meet in one point, that
    // point goes to (x, y). The codes that mean a meeting are 1234, -1234, 13, 14, 23 and 24;
    // every other code means none.
    static int edge_edge(double ax, double ay, double bx, double by, double cx, double cy,
                         double dx, double dy, double* x, double* y, double tolerance);
    // The distance of p from the segment a-b; the nearest point of the segment goes to (fx, fy).
    static double point_EdgeSpace(double px, double py, double ax, double ay, double bx, double by,
                                  double* fx, double* fy);
    // The distance of p from the line through a and b, and the foot of the perpendicular in
    // (fx, fy); `mode` chooses how the foot is bounded.
    static double point_LineSpace(double px, double py, double ax, double ay, double bx, double by,
                                  double* fx, double* fy, int mode);
};

}  // namespace TMObjects
