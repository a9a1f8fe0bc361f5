#include "tlsparef/TLProjObject.h"

#include <utility>

namespace TMObjects {

TLProjObject::TLProjObject(PJ* object) : mContext(TLProjContext::Current()), mObject(object) {}

TLProjObject::~TLProjObject() {
    Reset();
}

TLProjObject::TLProjObject(TLProjObject&& other) noexcept
    : mContext(std::move(other.mContext)), mObject(std::exchange(other.mObject, nullptr)) {}

TLProjObject& TLProjObject::operator=(TLProjObject&& other) noexcept {
    if (this != &other) {
        Reset();
        mContext = std::move(other.mContext);
        mObject = std::exchange(other.mObject, nullptr);
    }
    return *this;
}

void TLProjObject::Reset() {
    if (mObject) proj_destroy(mObject);
    mObject = nullptr;
    mContext.reset();
}

}  // namespace TMObjects
