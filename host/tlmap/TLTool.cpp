#include "tlmap/TLTool.h"

#include <cmath>

#include "tlmap/TLMapView.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

int TLTool::selectFeatureNum = 0;

TLTool::TLTool() = default;

TLTool::TLTool(TLToolBuddy* buddy) : mBuddy(buddy) {}

TLTool::~TLTool() = default;

TLFlags<TLTool::Flag> TLTool::flags() const {
    return TLFlags<Flag>();
}

void TLTool::activate() {
    mActive = true;
}

void TLTool::deactivate() {
    mActive = false;
}

bool TLTool::isActive() {
    return mActive;
}

bool TLTool::Init(TLToolBuddy* buddy) {
    mBuddy = buddy;
    return true;
}

// The base takes no event: a tool that wants one overrides its entry.
bool TLTool::OnMouseDown(TLMouseButton, int, int) {
    return false;
}
bool TLTool::OnMouseUp(TLMouseButton, int, int) {
    return false;
}
bool TLTool::OnMouseMove(TLMouseButton, int, int) {
    return false;
}
bool TLTool::OnDblClick(TLMouseButton, int, int) {
    return false;
}
bool TLTool::processInformation(TLString&, TLString&) {
    return false;
}
bool TLTool::processChildCmd(TLString) {
    return false;
}
bool TLTool::setInformation(TLString) {
    return false;
}
bool TLTool::setMultipleInformation(TLArray<TLString>) {
    return false;
}
bool TLTool::IsCmd() {
    return false;
}
bool TLTool::OnKeyDown(int) {
    return false;
}
void TLTool::clearCanvas() {}

TLString TLTool::getName() const {
    return mName;
}

std::map<TLString, TLString>& TLTool::getParams() {
    return mParams;
}

void TLTool::setParam(TLString key, TLString value) {
    mParams[key] = value;
}

void TLTool::setParams(const std::map<TLString, TLString>& params) {
    mParams = params;
}

void TLTool::removeParam(const TLString& key) {
    mParams.erase(key);
}

bool TLTool::AddFirstPoint(TLPoint) {
    return false;
}
bool TLTool::AddInputPoint(TLPoint) {
    return false;
}
bool TLTool::stopInputPoint() {
    return false;
}
bool TLTool::isHaveOnePoint() {
    return false;
}

TLDisplayTransform* TLTool::viewTransform() {
    if (!mBuddy) return nullptr;
    TLMapView* view = mBuddy->GetMapView();
    return view ? view->GetDisplayTransform() : nullptr;
}

TLPoint TLTool::ToMapCoordinates(TLPoint device, TLDisplayTransform* transform) {
    if (!transform) transform = viewTransform();
    return transform ? transform->ToMap(device) : device;
}

double TLTool::ToMapDistance(double pixels, TLDisplayTransform* transform) {
    if (!transform) transform = viewTransform();
    return transform ? pixels * transform->mResolution : pixels;
}

double TLTool::ToMapTolerance(const double& pixels) {
    return ToMapDistance(pixels, nullptr);
}

void TLTool::GetStraightLine(TLPoint from, TLPoint& to) {
    if (std::fabs(to.x - from.x) >= std::fabs(to.y - from.y))
        to.y = from.y;
    else
        to.x = from.x;
}

void TLTool::clearParams() {
    mParams.clear();
}

}  // namespace TMObjects
