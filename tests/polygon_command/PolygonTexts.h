#pragma once

// The texts of the polygon command as the user reads them.
namespace TMObjects {
namespace polygon_texts {

inline constexpr const char* kFirst = "Specify the first point:";
inline constexpr const char* kInputLayer = "The current input layer is:*******polygon*******";
inline constexpr const char* kCommand = "Command:Drawing Polygon";
inline constexpr const char* kDrawPolygon = "Draw Polygon";
inline constexpr const char* kWrongLayer =
    "The current layer is not a Polygon layer. Please select the Polygon layer editor!";
inline constexpr const char* kLayerError = "Layer error";
inline constexpr const char* kBadText = "Point coordinate or command input error, please re-enter!";
inline constexpr const char* kBadDistance = "The input distance is not legal!";
inline constexpr const char* kEnterDistance = "Please enter the distance:";
inline constexpr const char* kDistance = "input distance:";
inline constexpr const char* kOffset = "input offset coordinate:";
inline constexpr const char* kInterval = "Please specify a point [mouse click or X (y)]:";
inline constexpr const char* kPerpendicular = "Perpendicular to the other line [select line]:";
inline constexpr const char* kParallel = "Parallel to other lines [choose line]:";
inline constexpr const char* kCount1 =
    "Offset coordinate(OF)/Vertical distance(CZ)/Parallel lines(PL)/Specify length(LE)/Parallel "
    "extension(PY)/Give up(U)/<Specify point>:";
inline constexpr const char* kCount2 =
    "Offset coordinate(OF)/Modify length(CL)/Vertical distance(CZ)/Micro-traverse(AS)/Parallel "
    "lines(PL)/Specify length(LE)/Parallel extension(PY)/Reversion(FX)/Extension(YS)/Interval "
    "with one point(J)/Give up(U)/<Specify point>:";
inline constexpr const char* kCount3 =
    "Offset coordinate(OF)/Modify length(CL)/Vertical distance(CZ)/Micro-traverse(AS)/Parallel "
    "lines(PL)/Specify length(LE)/Parallel extension(PY)/Reversion(FX)/Extension(YS)/Interval "
    "with one point(J)/Close after an interval pint(D)/Give up(U)/Finish(E)/Close(C)/<Specify "
    "point>:";

}  // namespace polygon_texts
}  // namespace TMObjects
