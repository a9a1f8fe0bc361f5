#include "tlbase/TLConnectionKeys.h"

namespace TMObjects {

const TLString WORKSPACE_TYPE_SHAPEFILE(L"ShapeFile");
const TLString WORKSPACE_TYPE_RASTERFILE(L"RasterFile");
const TLString WORKSPACE_TYPE_ACCESS(L"Access");
const TLString WORKSPACE_TYPE_OGR(L"OGR");

const TLString CONNECT_FILEPATH(L"FILEPATH");
const TLString CONNECT_INSTANCE(L"INSTANCE");
const TLString CONNECT_SERVER(L"SERVER");
const TLString CONNECT_DATABASE(L"DATABASE");
const TLString CONNECT_USER(L"USER");
const TLString CONNECT_PASSWORD(L"PASSWORD");

}  // namespace TMObjects
