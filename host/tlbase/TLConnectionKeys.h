#pragma once

#include "tlbase/TLString.h"

namespace TMObjects {

// Workspace type names and connection property keys of the host's workspace interface.
extern const TLString WORKSPACE_TYPE_SHAPEFILE;   // "ShapeFile"
extern const TLString WORKSPACE_TYPE_RASTERFILE;  // "RasterFile"
extern const TLString WORKSPACE_TYPE_ACCESS;      // "Access"
extern const TLString WORKSPACE_TYPE_OGR;         // "OGR"

extern const TLString CONNECT_FILEPATH;  // "FILEPATH"
extern const TLString CONNECT_INSTANCE;  // "INSTANCE"
extern const TLString CONNECT_SERVER;    // "SERVER"
extern const TLString CONNECT_DATABASE;  // "DATABASE"
extern const TLString CONNECT_USER;      // "USER"
extern const TLString CONNECT_PASSWORD;  // "PASSWORD"

}  // namespace TMObjects
