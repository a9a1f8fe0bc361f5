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

    // How segment a-b meets segment c-d, within `tolerance` (a distance). The digits of a code
    // name the ends that take part, a and b being 1 and 2, c and d 3 and 4; checked in this
    // order:
    // - -1234: the two run along each other for a stretch longer than the tolerance; (x, y) is
    //   the end of the shared stretch nearest a.
    // - 13, 14, 23, 24: an end of a-b is an end of c-d (a on c, a on d, b on c, b on d, the first
    //   that holds); (x, y) is that end of a-b.
    // - 1, 2: a or b lies inside c-d (a "T"); 3, 4: c or d lies inside a-b; (x, y) is that end.
    // - 1234: the two cross at one point inside both; (x, y) is the crossing.
    // - 0: they do not meet.
    // The codes that mean a meeting are 1234, -1234, 13, 14, 23 and 24. So a line that runs
    // exactly through a vertex of another without a vertex of its own there (codes 3 and 4 with
    // the two segments at that vertex) does not meet it there, while one that has a vertex there,
    // as a snapped line has, meets each segment at that vertex (13, 14, 23 or 24). A segment of
    // no length counts as its one point.
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
