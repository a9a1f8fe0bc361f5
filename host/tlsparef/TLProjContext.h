#pragma once

#include <memory>

#include <proj.h>

namespace TMObjects {

// The PROJ context of the calling thread. PROJ contexts must not be shared between threads, so
// each thread gets its own on first use. Objects made in a context keep it alive through the
// shared pointer, because proj_destroy still talks to the context that made the object; a
// coordinate system held by a static object may outlive the thread-local holder.
class TLProjContext {
public:
    TLProjContext();
    ~TLProjContext();
    TLProjContext(const TLProjContext&) = delete;
    TLProjContext& operator=(const TLProjContext&) = delete;

    static std::shared_ptr<TLProjContext> Current();
    PJ_CONTEXT* Get() const { return mContext; }

private:
    PJ_CONTEXT* mContext;
};

}  // namespace TMObjects
