#pragma once

#include <QObject>
#include <QString>

#include "tlbase/TLString.h"

namespace TMObjects {

// Every user text of the tools is an English source string passed through tr and handed to the
// host as a wide string.
inline TLString toolText(const char* source) {
    return TLString(QObject::tr(source).toStdWString());
}

inline TLString toTLString(const QString& text) {
    return TLString(text.toStdWString());
}

inline QString toQString(const TLString& text) {
    return QString::fromStdWString(text.toStdWString());
}

}  // namespace TMObjects
