#include "tmgis/TLGdalCall.h"

#include <gdal.h>

#include <mutex>
#include <string>

namespace TMObjects {

TLGdalCall::TLGdalCall() {
    static std::once_flag registered;
    std::call_once(registered, [] { GDALAllRegister(); });
    CPLErrorReset();
    CPLPushErrorHandlerEx(&TLGdalCall::collect, this);
}

TLGdalCall::~TLGdalCall() {
    CPLPopErrorHandler();
}

std::string TLGdalCall::Failures() const {
    std::string text;
    for (const std::string& failure : mFailures) {
        if (!text.empty()) text += "; ";
        text += failure;
    }
    return text;
}

std::string TLGdalCall::Reason(const std::string& fallback) const {
    return mFailures.empty() ? fallback : Failures();
}

void CPL_STDCALL TLGdalCall::collect(CPLErr level, CPLErrorNum, const char* message) {
    auto* self = static_cast<TLGdalCall*>(CPLGetErrorHandlerUserData());
    if (!self || !message) return;
    // Callers end the sentence themselves: GDAL's own full stop would make two.
    std::string text(message);
    while (!text.empty() && (text.back() == '.' || text.back() == ' ')) text.pop_back();
    if (level == CE_Failure || level == CE_Fatal)
        self->mFailures.push_back(text);
    else if (level == CE_Warning)
        self->mWarnings.push_back(text);
}

}  // namespace TMObjects
