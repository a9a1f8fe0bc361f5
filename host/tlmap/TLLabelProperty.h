#pragma once

#include <map>

#include "tlbase/TLRefBase.h"
#include "tlbase/TLString.h"
#include "tlsde/TLTextElement.h"
#include "tlsymbol/TLStyle.h"

namespace TMObjects {

// How a feature layer labels its features: the text's look, the expression that gives each
// feature's text, an optional background box and the placement rules.
class TLLabelProperty : public TLRefBase {
public:
    // How a label lies along a line: 1 follows it, 3 is kept readable left to right.
    enum LineDrawMode { Horizontal = 0, FollowLine = 1, Parallel = 2, LeftToRight = 3 };
    // The box behind a label: 0 none, 1 square, 3 circle, 4 diamond, 5 triangle.
    enum BackgroundMode {
        NoBackground = 0,
        SquareBackground = 1,
        CircleBackground = 3,
        DiamondBackground = 4,
        TriangleBackground = 5
    };

    TLLabelProperty() = default;
    ~TLLabelProperty() override;

    const TLTextElement& get_TextElement() const { return mText; }
    void put_TextElement(const TLTextElement& text) { mText = text; }
    // The label expression for a placement; placements without one of their own use that of
    // placement 0.
    TLString GetExpression(int position) const;
    void SetExpression(int position, const TLString& expression);
    int get_BackgroundMode() const { return mBackgroundMode; }
    void put_BackgroundMode(int mode) { mBackgroundMode = mode; }
    // A fill style that draws the background box.
    TLRefPtr<TLStyle> get_BackgroundStyle() const { return mBackgroundStyle; }
    void put_BackgroundStyle(TLRefPtr<TLStyle> style) { mBackgroundStyle = style; }
    int get_LineDrawMode() const { return mLineDrawMode; }
    void put_LineDrawMode(int mode) { mLineDrawMode = mode; }
    bool IsRepeat() const { return mRepeat; }
    double GetRepeatDistance() const { return mRepeatDistance; }
    void SetRepeat(bool repeat, double distance);
    int GetHorizontalAvoidDistance() const { return mAvoidX; }
    int GetVecticalAvoidDistance() const { return mAvoidY; }
    void SetAvoidDistances(int horizontal, int vertical);
    int GetHandlingConflict() const { return mHandlingConflict; }
    void SetHandlingConflict(int handling) { mHandlingConflict = handling; }
    bool isMergeConnectdLines() const { return mMergeLines; }
    void setMergeConnectdLines(bool merge) { mMergeLines = merge; }

private:
    TLTextElement mText;
    std::map<int, TLString> mExpressions;
    int mBackgroundMode = NoBackground;
    TLRefPtr<TLStyle> mBackgroundStyle;
    int mLineDrawMode = Horizontal;
    bool mRepeat = false;
    double mRepeatDistance = 0.0;
    int mAvoidX = 0;
    int mAvoidY = 0;
    int mHandlingConflict = 0;
    bool mMergeLines = false;
};

}  // namespace TMObjects
