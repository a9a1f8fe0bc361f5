#include "tlsymbol/TLFileFunc.h"

#include <cstring>

namespace TMObjects {

void TLFileFunc::writeWord(uint32_t word) {
    for (int i = 0; i < 4; ++i) mBytes.push_back(char((word >> (8 * i)) & 0xFF));
}

void TLFileFunc::writeLong(uint64_t word) {
    for (int i = 0; i < 8; ++i) mBytes.push_back(char((word >> (8 * i)) & 0xFF));
}

void TLFileFunc::WriteInt(int value) {
    writeWord(uint32_t(value));
}

void TLFileFunc::WriteDouble(double value) {
    uint64_t word = 0;
    std::memcpy(&word, &value, sizeof word);
    writeLong(word);
}

void TLFileFunc::WriteBool(bool value) {
    mBytes.push_back(value ? '\1' : '\0');
}

void TLFileFunc::WriteString(const TLString& value) {
    const std::string text = value.toStdString();
    writeWord(uint32_t(text.size()));
    mBytes += text;
}

void TLFileFunc::WriteColor(const TLColor& value) {
    writeWord(value.GetColor());
}

void TLFileFunc::WriteDoubles(const std::vector<double>& values) {
    writeWord(uint32_t(values.size()));
    for (double value : values) WriteDouble(value);
}

bool TLFileFunc::take(size_t count, const char*& bytes) {
    if (mFailed || count > mBytes.size() - mPosition) {
        mFailed = true;
        return false;
    }
    bytes = mBytes.data() + mPosition;
    mPosition += count;
    return true;
}

bool TLFileFunc::ReadInt(int& value) {
    const char* bytes = nullptr;
    if (!take(4, bytes)) return false;
    uint32_t word = 0;
    for (int i = 0; i < 4; ++i) word |= uint32_t(uint8_t(bytes[i])) << (8 * i);
    value = int(word);
    return true;
}

bool TLFileFunc::ReadDouble(double& value) {
    const char* bytes = nullptr;
    if (!take(8, bytes)) return false;
    uint64_t word = 0;
    for (int i = 0; i < 8; ++i) word |= uint64_t(uint8_t(bytes[i])) << (8 * i);
    std::memcpy(&value, &word, sizeof value);
    return true;
}

bool TLFileFunc::ReadBool(bool& value) {
    const char* bytes = nullptr;
    if (!take(1, bytes)) return false;
    if (bytes[0] != 0 && bytes[0] != 1) {
        mFailed = true;
        return false;
    }
    value = bytes[0] == 1;
    return true;
}

bool TLFileFunc::ReadString(TLString& value) {
    int count = 0;
    const char* bytes = nullptr;
    if (!ReadInt(count) || count < 0 || !take(size_t(count), bytes)) {
        mFailed = true;
        return false;
    }
    value = TLString(std::string(bytes, size_t(count)));
    return true;
}

bool TLFileFunc::ReadColor(TLColor& value) {
    int word = 0;
    if (!ReadInt(word)) return false;
    const uint32_t argb = uint32_t(word);
    value = TLColor(int((argb >> 16) & 0xFF), int((argb >> 8) & 0xFF), int(argb & 0xFF),
                    int(argb >> 24));
    return true;
}

bool TLFileFunc::ReadDoubles(std::vector<double>& values) {
    int count = 0;
    // Each value takes 8 bytes: a count beyond what is left is damage, not a reason to allocate.
    if (!ReadInt(count) || count < 0 || size_t(count) > (mBytes.size() - mPosition) / 8) {
        mFailed = true;
        return false;
    }
    std::vector<double> read(size_t(count), 0.0);
    for (double& value : read)
        if (!ReadDouble(value)) return false;
    values = std::move(read);
    return true;
}

}  // namespace TMObjects
