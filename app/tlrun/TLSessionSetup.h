#pragma once

#include <string>

#include "TLSession.h"
#include "TLSessionScript.h"

namespace TMObjects {

// The commands of a script that set the scene: data, map, view, layers, selection and the
// host's settings. None of them is an event a tool sees.
//
//   demo-data PATH                 writes a fresh demo GeoPackage at PATH
//   open PATH                      opens a data source for editing; its layers go on the map.
//                                  A PostGIS database is named by its connection, in quotes:
//                                  open "PG:host=/tmp/pg dbname=gis user=ann"
//   dem PATH SHAPE COLUMNS ROWS CELL [type=T] [nodata=V] [hole=COL,ROW]...
//                                  writes an elevation GeoTIFF (see TLDemRaster.h: plane:A:B,
//                                  cone:H:R, flat:Z; lower-left corner (500000, 5000000) in
//                                  EPSG:32633); `open` puts it on the map
//   crs EPSG:N|none                the map's coordinate system
//   view XMIN YMIN XMAX YMAX W H   the map rectangle shown on a view of W x H pixels; device
//                                  (0,0) is the top-left corner (XMIN,YMAX), so the two ratios
//                                  of map units to pixels must agree
//   layer NAME point|line|polygon|annotation [crs EPSG:N] [fields A:int,B:double,...]
//         [kind N] [refscale S] [geometry point|line|polygon]
//                                  a new layer in memory; field types short, int, int64, float,
//                                  double, string, date. An annotation layer also has the fields
//                                  of its family (kind 1 Rv, 2 Tm, other both; see TLAnnoMgrTool),
//                                  the reference scale 1:S (1000 unless given) and the geometry
//                                  of its features (the text's box unless given)
//   add NAME WKT [FIELD=VALUE ...]  a feature of a layer made by `layer`, as if it had been there
//                                  all along: no edit, nothing to undo or save
//   edit NAME|none                 the edit layer (and the current one), or none
//   readonly NAME, editable NAME   whether a layer may be edited
//   current NAME                   the current layer
//   hide NAME, show NAME           whether a layer is shown
//   snap on|off [PIXELS]           snapping, and its tolerance
//   tolerance PIXELS               the pick tolerance of selecting
//   select NAME ID...              the layer's selection; "select none" clears every layer's
//   modifiers none|shift|ctrl|shift+ctrl   the keys held from now on
//   partmode line|polygon N        the part mode the host answers the line or polygon tool
//   annotation-table PATH NAME [crs EPSG:N] [fields ...] [kind N] [refscale S] [geometry G]
//                                  writes a new annotation table into a GeoPackage (made when
//                                  missing), with the same options as `layer`; `open` then reads
//                                  it as an annotation layer
//   domain NAME FIELD CODE=NAME,...   a coded value domain of a field of a layer made by `layer`
//   alias NAME FIELD TEXT          the alias of such a field
// The host's options (selection mode, a layer's standing filter, the measuring settings) are set
// by the commands of TLEnvironmentSetup.h.
class TLSessionSetup {
public:
    explicit TLSessionSetup(TLSession& session) : mSession(session) {}

    static bool Knows(const std::string& verb);
    // False with the reason when the command is wrong, or cannot be carried out.
    bool Run(const TLSessionCommand& command, std::string& error);

private:
    bool demoData(const TLSessionCommand& c, std::string& error);
    bool open(const TLSessionCommand& c, std::string& error);
    bool dem(const TLSessionCommand& c, std::string& error);
    bool knowOpened(const std::string& path, std::string& error);
    bool crs(const TLSessionCommand& c, std::string& error);
    bool view(const TLSessionCommand& c, std::string& error);
    bool layer(const TLSessionCommand& c, std::string& error);
    bool add(const TLSessionCommand& c, std::string& error);
    bool edit(const TLSessionCommand& c, std::string& error);
    bool layerSwitch(const TLSessionCommand& c, std::string& error);
    bool snap(const TLSessionCommand& c, std::string& error);
    bool tolerance(const TLSessionCommand& c, std::string& error);
    bool select(const TLSessionCommand& c, std::string& error);
    bool modifiers(const TLSessionCommand& c, std::string& error);
    bool partMode(const TLSessionCommand& c, std::string& error);
    bool fieldDetail(const TLSessionCommand& c, std::string& error);
    bool annotationTable(const TLSessionCommand& c, std::string& error);

    TLSession& mSession;
};

}  // namespace TMObjects
