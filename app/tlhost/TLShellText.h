#pragma once

#include <QString>

#include "tlbase/TLString.h"

namespace TMObjects {

// The framework's wide strings and Qt's, both ways, without a detour through a narrow encoding.
inline QString ToQString(const TLString& text) {
    return QString::fromStdWString(text.toStdWString());
}

inline TLString ToTLString(const QString& text) {
    return TLString(text.toStdWString());
}

}  // namespace TMObjects
