#pragma once

namespace TMObjects {

// A width and a height, in whatever unit the giver states (pixels for text boxes).
class TLSize {
public:
    TLSize() = default;
    TLSize(double width, double height) : mWidth(width), mHeight(height) {}

    double GetWidth() const { return mWidth; }
    double GetHeight() const { return mHeight; }
    void SetWidth(double width) { mWidth = width; }
    void SetHeight(double height) { mHeight = height; }
    bool IsEmpty() const { return !(mWidth > 0) || !(mHeight > 0); }

private:
    double mWidth = 0.0;
    double mHeight = 0.0;
};

}  // namespace TMObjects
