#pragma once

#include <string>
#include <vector>

#include "tlbase/TLPoint.h"

// Reads point lists from spreadsheets and text files.
class TMExcelUtil {
public:
    // The points of a coordinate file, in file order, as they stand: no closing point is added.
    //
    // Layout: one point a row, in the columns number, x, y (A, B, C of the first sheet of an
    // ".xls" or ".xlsx" workbook; three fields split at commas in a text file, as in
    // "1,100,100"). The number is not read. A row is left out when its x or y is no number:
    // column titles, "Begin" and "End" lines, empty rows. Spreadsheets are read through GDAL
    // with header detection off, so a first row of numbers is a point like any other.
    // Empty for a file that cannot be read or holds no point.
    static std::vector<TMObjects::TLPoint> readCoordinateFile(const std::string& path);
};
