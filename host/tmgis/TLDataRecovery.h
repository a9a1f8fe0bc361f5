#pragma once

#include <string>
#include <vector>

namespace TMObjects {

// Puts right, before a data source is read, what a save that was killed left behind:
// - a Shapefile (or other rewritten file) half put in place: the swap is finished or thrown
//   away (TLFileSwap), so that the layer is exactly as saved or exactly as before;
// - a GeoPackage with a hot journal: it is rolled back, which also lets read-only opens work;
// - a GeoPackage whose records of a table GDAL had not yet written back (a count of NULL, the
//   count triggers dropped, an extent that misses the new features): they are written anew
//   from the table's rows.
// Each thing done is said in one line for the user.
class TLDataRecovery {
public:
    static void Recover(const std::string& path, std::vector<std::string>& said);

private:
    static void recoverGeoPackage(const std::string& path, std::vector<std::string>& said);
};

}  // namespace TMObjects
