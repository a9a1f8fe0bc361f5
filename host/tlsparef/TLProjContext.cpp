#include "tlsparef/TLProjContext.h"

namespace TMObjects {

TLProjContext::TLProjContext() : mContext(proj_context_create()) {
    // Bad definitions are answered through IsValid(); PROJ's own messages on stderr would only
    // repeat that to a user who cannot act on them.
    proj_log_level(mContext, PJ_LOG_NONE);
}

TLProjContext::~TLProjContext() {
    proj_context_destroy(mContext);
}

std::shared_ptr<TLProjContext> TLProjContext::Current() {
    thread_local std::shared_ptr<TLProjContext> context = std::make_shared<TLProjContext>();
    return context;
}

}  // namespace TMObjects
