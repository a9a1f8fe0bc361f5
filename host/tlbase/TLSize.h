#pragma once

namespace TMObjects {

// A size in whole cells (columns across, rows down) or whole pixels (a text box).
class TLSize {
public:
    TLSize() = default;
    TLSize(int width, int height) : mWidth(width), mHeight(height) {}

    int GetWidth() const { return mWidth; }
    int GetHeight() const { return mHeight; }
    int width() const { return mWidth; }
    int height() const { return mHeight; }
    bool IsEmpty() const { return mWidth <= 0 || mHeight <= 0; }

private:
    int mWidth = 0;
    int mHeight = 0;
};

inline bool operator==(const TLSize& a, const TLSize& b) {
    return a.GetWidth() == b.GetWidth() && a.GetHeight() == b.GetHeight();
}

}  // namespace TMObjects
