#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tlbase/TLColor.h"
#include "tlbase/TLString.h"

namespace TMObjects {

// The byte stream a style is saved to and opened from. Values are written in a fixed layout
// whatever the machine: integers as 32-bit little-endian two's complement, doubles as 64-bit
// little-endian IEEE 754, booleans as one byte 0 or 1, strings as a 32-bit byte count and their
// UTF-8 bytes, colours as one 32-bit 0xAARRGGBB. A read past the end, or a count larger than what
// is left, fails the stream: every later read fails too and writes nothing, so that a reader can
// check once, at the end.
class TLFileFunc {
public:
    // An empty stream to write to.
    TLFileFunc() = default;
    // A stream that reads `bytes`.
    explicit TLFileFunc(std::string bytes) : mBytes(std::move(bytes)) {}

    void WriteInt(int value);
    void WriteDouble(double value);
    void WriteBool(bool value);
    void WriteString(const TLString& value);
    void WriteColor(const TLColor& value);
    // A 32-bit count, then the values.
    void WriteDoubles(const std::vector<double>& values);

    bool ReadInt(int& value);
    bool ReadDouble(double& value);
    bool ReadBool(bool& value);
    bool ReadString(TLString& value);
    bool ReadColor(TLColor& value);
    bool ReadDoubles(std::vector<double>& values);

    // True once a read has failed.
    bool Failed() const { return mFailed; }
    // Marks the stream as failed: what it holds does not make sense to the reader.
    void Fail() { mFailed = true; }
    // True when every byte has been read.
    bool AtEnd() const { return mPosition == mBytes.size(); }
    const std::string& Bytes() const { return mBytes; }
    // How deep the reader is in nested values; the reader of nested styles keeps it.
    int Depth() const { return mDepth; }
    void EnterNested() { ++mDepth; }
    void LeaveNested() { --mDepth; }

private:
    void writeWord(uint32_t word);
    void writeLong(uint64_t word);
    bool take(size_t count, const char*& bytes);

    std::string mBytes;
    size_t mPosition = 0;
    bool mFailed = false;
    int mDepth = 0;
};

}  // namespace TMObjects
