#pragma once

#include <map>
#include <string>

#include "TLSession.h"
#include "TLSessionScript.h"
#include "tlsymbol/TLStyle.h"

namespace TMObjects {

// The set-up commands of a script that give layers their symbology, as a user sets it in the
// host's layer properties, so that exports can be played end to end:
//
//   style ID KIND [KEY=VALUE ...]  a style the script calls ID. KIND: simple-point,
//                                  character-point, bitmap-point, svg-point, simple-line,
//                                  brink-line, pattern-line, point-decorate-line,
//                                  line-decorate-line, script-line, simple-fill, point-fill,
//                                  line-fill, script-fill, multi-point, multi-line, multi-fill.
//                                  KEYS: name, color and background and outline-color
//                                  (#rrggbb or #rrggbbaa), units (px, pt, mm, cm, in), width,
//                                  height, degree, shape (square, circle, diamond, triangle),
//                                  outline-width, offset, shift, cap (round, square, butt),
//                                  join (bevel, round, mitre), dash (a pen style number), steps
//                                  (a,b,...), placement, font, char, file, svg (the file with
//                                  its parameters), script, fill-background and gradient
//                                  (on|off), separate, separate-x, separate-y, fill-type; and
//                                  styles the script made before: outline=ID, decorate=ID,
//                                  layers=ID,ID,... (the first on top)
//   render NAME single ID          every feature of the layer drawn with the style
//   render NAME categorized FIELD VALUE=ID ...
//                                  one class per value ("none" for a style-less class)
//   render NAME rules "EXPRESSION" "LABEL" ID|none ...
//                                  one rule per triple
//   render NAME specified FIELD CODE=ID ... [default=ID]
//                                  each feature drawn with the symbol its field names
//   render NAME none               a render of no kind
//   render NAME stretch [algorithm=N] [gray=N | colors=#rrggbb,...] [band=B]
//   render NAME classes VALUE:UPPER:#rrggbb ... [band=B]
//   render NAME rgb R G B [use=rgb]   (use: the channels switched on, of "rgb")
//   render NAME image-none         a raster render that is no image render
//   scales NAME MIN MAX            the scales the layer is shown at (0 0: all)
//   alpha NAME A                   the layer's opacity, 1 opaque
//   raise NAME                     puts the layer on top of the map (the last of its list), as
//                                  a user drags it up in the layer panel; it is then neither the
//                                  edit layer nor the current one
class TLStyleSetup {
public:
    explicit TLStyleSetup(TLSession& session) : mSession(session) {}

    static bool Knows(const std::string& verb);
    // False with the reason when the command is wrong.
    bool Run(const TLSessionCommand& command, std::string& error);

private:
    bool style(const TLSessionCommand& c, std::string& error);
    bool render(const TLSessionCommand& c, std::string& error);
    bool featureRender(const TLSessionCommand& c, std::string& error);
    bool rasterRender(const TLSessionCommand& c, std::string& error);
    bool layerNumbers(const TLSessionCommand& c, std::string& error);
    bool raise(const TLSessionCommand& c, std::string& error);
    // The style the script called `id`; "none" is no style. False when there is no such style.
    bool styleNamed(const std::string& id, TLRefPtr<TLStyle>& style, std::string& error) const;

    TLSession& mSession;
};

}  // namespace TMObjects
