#include "tmgisutil/TMExcelUtil.h"

#include <cpl_conv.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>

namespace {

using TMObjects::TLPoint;

std::string lowerExtension(const std::string& path) {
    const std::size_t dot = path.rfind('.');
    if (dot == std::string::npos || path.find('/', dot) != std::string::npos) return {};
    std::string extension = path.substr(dot);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return char(std::tolower(c)); });
    return extension;
}

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

// The whole text as a number; false for anything else.
bool number(const std::string& text, double& value) {
    const std::string t = trimmed(text);
    if (t.empty()) return false;
    char* end = nullptr;
    value = std::strtod(t.c_str(), &end);
    return end == t.c_str() + t.size();
}

void addRow(const std::vector<std::string>& cells, std::vector<TLPoint>& points) {
    double x = 0.0, y = 0.0;
    if (cells.size() >= 3 && number(cells[1], x) && number(cells[2], y)) points.emplace_back(x, y);
}

std::vector<TLPoint> readText(const std::string& path) {
    std::vector<TLPoint> points;
    std::ifstream in(path);
    std::string line;
    while (std::getline(in, line)) {
        std::vector<std::string> cells;
        std::size_t from = 0;
        for (std::size_t comma; (comma = line.find(',', from)) != std::string::npos;
             from = comma + 1)
            cells.push_back(line.substr(from, comma - from));
        cells.push_back(line.substr(from));
        addRow(cells, points);
    }
    return points;
}

// Header detection off while the workbook is read, on this thread only.
class NoHeaders {
public:
    NoHeaders() {
        for (int i = 0; i < 2; ++i) {
            const char* old = CPLGetThreadLocalConfigOption(kKeys[i], nullptr);
            mHad[i] = old != nullptr;
            if (old) mOld[i] = old;
            CPLSetThreadLocalConfigOption(kKeys[i], "DISABLE");
        }
    }
    ~NoHeaders() {
        for (int i = 0; i < 2; ++i)
            CPLSetThreadLocalConfigOption(kKeys[i], mHad[i] ? mOld[i].c_str() : nullptr);
    }

private:
    static constexpr const char* kKeys[2] = {"OGR_XLS_HEADERS", "OGR_XLSX_HEADERS"};
    bool mHad[2] = {false, false};
    std::string mOld[2];
};

std::vector<TLPoint> readWorkbook(const std::string& path) {
    std::vector<TLPoint> points;
    GDALAllRegister();
    NoHeaders noHeaders;
    CPLPushErrorHandler(CPLQuietErrorHandler);
    GDALDatasetUniquePtr workbook(
        GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
    CPLPopErrorHandler();
    if (!workbook || workbook->GetLayerCount() == 0) return points;
    OGRLayer* sheet = workbook->GetLayer(0);
    sheet->ResetReading();
    for (OGRFeatureUniquePtr row(sheet->GetNextFeature()); row;
         row.reset(sheet->GetNextFeature())) {
        std::vector<std::string> cells;
        for (int i = 0; i < row->GetFieldCount(); ++i)
            cells.push_back(row->IsFieldSetAndNotNull(i) ? row->GetFieldAsString(i) : "");
        addRow(cells, points);
    }
    return points;
}

}  // namespace

std::vector<TLPoint> TMExcelUtil::readCoordinateFile(const std::string& path) {
    const std::string extension = lowerExtension(path);
    if (extension == ".xls" || extension == ".xlsx") return readWorkbook(path);
    return readText(path);
}
