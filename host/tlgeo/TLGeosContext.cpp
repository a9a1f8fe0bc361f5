#include "tlgeo/TLGeosContext.h"

namespace TMObjects {

TLGeosContext::TLGeosContext() : mHandle(GEOS_init_r()) {
    GEOSContext_setErrorMessageHandler_r(mHandle, &TLGeosContext::onError, this);
    GEOSContext_setNoticeMessageHandler_r(mHandle, &TLGeosContext::onNotice, nullptr);
}

TLGeosContext::~TLGeosContext() {
    GEOS_finish_r(mHandle);
}

TLGeosContext& TLGeosContext::instance() {
    thread_local TLGeosContext context;
    return context;
}

GEOSContextHandle_t TLGeosContext::Handle() {
    return instance().mHandle;
}

const std::string& TLGeosContext::LastError() {
    return instance().mLastError;
}

void TLGeosContext::onNotice(const char*, void*) {}

void TLGeosContext::onError(const char* message, void* self) {
    static_cast<TLGeosContext*>(self)->mLastError = message ? message : "";
}

}  // namespace TMObjects
