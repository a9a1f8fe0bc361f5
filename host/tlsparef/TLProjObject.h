#pragma once

#include <memory>

#include "tlsparef/TLProjContext.h"

namespace TMObjects {

// Owns one PJ object (a coordinate system or an operation) together with the context it was
// made in.
class TLProjObject {
public:
    TLProjObject() = default;
    // Takes ownership of `object`, which was made in the current thread's context.
    explicit TLProjObject(PJ* object);
    ~TLProjObject();
    TLProjObject(TLProjObject&& other) noexcept;
    TLProjObject& operator=(TLProjObject&& other) noexcept;
    TLProjObject(const TLProjObject&) = delete;
    TLProjObject& operator=(const TLProjObject&) = delete;

    PJ* Get() const { return mObject; }
    PJ_CONTEXT* Context() const { return mContext ? mContext->Get() : nullptr; }
    explicit operator bool() const { return mObject != nullptr; }
    void Reset();

private:
    std::shared_ptr<TLProjContext> mContext;
    PJ* mObject = nullptr;
};

}  // namespace TMObjects
