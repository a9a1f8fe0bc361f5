#pragma once

#include <vector>

#include "tlbase/TLColor.h"
#include "tlmap/TLImageRenderInfo.h"

namespace TMObjects {

// Cells shown by classes: each class is a value (or the lower end of a range), the upper end of
// its range (equal to the value for a single value), and a colour.
class TLImageClassRenderInfo : public TLImageRenderInfo {
public:
    TLImageClassRenderInfo();
    ~TLImageClassRenderInfo() override;

    virtual int GetClassCount() const;
    // The class at `index`; false, with nothing written, outside the list.
    bool GetClassItemInfo(int index, double& value, double& upper, TLColor& color) const;
    void AddClassItem(double value, double upper, const TLColor& color);

private:
    struct Item {
        double value;
        double upper;
        TLColor color;
    };
    std::vector<Item> mItems;
};

}  // namespace TMObjects
