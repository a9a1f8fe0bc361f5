#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Digitizes an ellipse as a polygon of computed vertices.
class TL_ACTIONEX_EXPORT TLCmdDigitizeEllipse : public TLTool {
public:
    TLCmdDigitizeEllipse();
    explicit TLCmdDigitizeEllipse(TLToolBuddy* buddy);
    ~TLCmdDigitizeEllipse() override;
};

}  // namespace TMObjects
