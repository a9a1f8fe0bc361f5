#pragma once

#include <geos_c.h>

#include <memory>
#include <string>

namespace TMObjects {

// The GEOS context of the calling thread. GEOS handles must not be shared between threads, so
// each thread gets its own, made on first use and finished when the thread ends. Errors that
// GEOS reports are kept as the last message instead of going to the standard error.
class TLGeosContext {
public:
    static GEOSContextHandle_t Handle();
    static const std::string& LastError();

    // Owns a GEOS geometry of the calling thread's context.
    struct Deleter {
        void operator()(GEOSGeometry* g) const { GEOSGeom_destroy_r(Handle(), g); }
    };
    using GeometryPtr = std::unique_ptr<GEOSGeometry, Deleter>;

private:
    TLGeosContext();
    ~TLGeosContext();
    static TLGeosContext& instance();
    static void onError(const char* message, void* self);
    static void onNotice(const char* message, void* self);

    GEOSContextHandle_t mHandle;
    std::string mLastError;
};

}  // namespace TMObjects
