#include "tlmap/TLLabelProperty.h"

namespace TMObjects {

TLLabelProperty::~TLLabelProperty() = default;

TLString TLLabelProperty::GetExpression(int position) const {
    auto found = mExpressions.find(position);
    if (found == mExpressions.end()) found = mExpressions.find(0);
    return found == mExpressions.end() ? TLString() : found->second;
}

void TLLabelProperty::SetExpression(int position, const TLString& expression) {
    mExpressions[position] = expression;
}

void TLLabelProperty::SetRepeat(bool repeat, double distance) {
    mRepeat = repeat;
    mRepeatDistance = distance;
}

void TLLabelProperty::SetAvoidDistances(int horizontal, int vertical) {
    mAvoidX = horizontal;
    mAvoidY = vertical;
}

}  // namespace TMObjects
