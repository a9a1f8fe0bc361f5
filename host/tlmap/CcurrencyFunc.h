#pragma once

namespace TMObjects {

// Small plane helpers shared by the editing tools.
class CcurrencyFunc {
public:
    // The foot (qx, qy) of the perpendicular from (px, py) on the line through a and b, and the
    // parameter t of that foot along a to b (0 at a, 1 at b). A segment of no length has its
    // foot at a and t = 0, so that a click on a doubled vertex still finds it.
    static double point_EdgeProject(double px, double py, double ax, double ay, double bx,
                                    double by, double* qx, double* qy);
    // The plane distance of two points.
    static double calcPointSpace(double x1, double y1, double x2, double y2);
};

}  // namespace TMObjects
