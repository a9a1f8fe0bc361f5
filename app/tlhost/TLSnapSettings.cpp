#include "TLSnapSettings.h"

#include <QSettings>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "tlmap/TLSnapTool.h"

namespace TMObjects {

namespace {

const char* const kEnabledKey = "snap/enabled";
const char* const kVertexKey = "snap/vertex";
const char* const kSegmentKey = "snap/segment";
const char* const kToleranceKey = "snap/tolerance";

}  // namespace

TLSnapSettings::TLSnapSettings(QObject* parent) : QObject(parent) {
    const QSettings settings;
    mEnabled = settings.value(kEnabledKey, true).toBool();
    mVertex = settings.value(kVertexKey, true).toBool();
    mSegment = settings.value(kSegmentKey, true).toBool();
    bool number = false;
    const double tolerance = settings.value(kToleranceKey, kDefaultTolerance).toDouble(&number);
    // A hand-edited file with a word or a silly number in it gives the default, not a snap
    // radius that swallows the map or never catches anything.
    mTolerance = number && std::isfinite(tolerance)
                     ? std::clamp(tolerance, kMinimumTolerance, kMaximumTolerance)
                     : kDefaultTolerance;
    apply();
}

void TLSnapSettings::SetEnabled(bool on) {
    if (on == mEnabled) return;
    mEnabled = on;
    QSettings().setValue(kEnabledKey, on);
    apply();
}

void TLSnapSettings::SetVertex(bool on) {
    if (on == mVertex) return;
    mVertex = on;
    QSettings().setValue(kVertexKey, on);
    apply();
}

void TLSnapSettings::SetSegment(bool on) {
    if (on == mSegment) return;
    mSegment = on;
    QSettings().setValue(kSegmentKey, on);
    apply();
}

void TLSnapSettings::SetTolerance(double pixels) {
    if (!std::isfinite(pixels)) return;
    pixels = std::clamp(pixels, kMinimumTolerance, kMaximumTolerance);
    if (pixels == mTolerance) return;
    mTolerance = pixels;
    QSettings().setValue(kToleranceKey, pixels);
    apply();
}

QString TLSnapSettings::Describe() const {
    QString targets;
    if (mVertex && mSegment)
        targets = tr("vertex and segment");
    else if (mVertex)
        targets = tr("vertex");
    else if (mSegment)
        targets = tr("segment");
    else
        targets = tr("no target");
    return tr("Snap: %1, %2, %3 pixels.")
        .arg(mEnabled ? tr("on") : tr("off"), targets, QString::number(mTolerance));
}

QString TLSnapSettings::RunCommand(const QStringList& words) {
    const auto is = [](const QString& word, const char* key) {
        return word.compare(QLatin1String(key), Qt::CaseInsensitive) == 0;
    };
    const QString usage =
        tr("SNAP takes ON, OFF, VERTEX ON|OFF, SEGMENT ON|OFF or a tolerance in "
           "pixels.");
    if (words.isEmpty()) {
        SetEnabled(!mEnabled);
        return Describe();
    }
    const QString& first = words.front();
    if (words.size() == 1 && (is(first, "ON") || is(first, "OFF"))) {
        SetEnabled(is(first, "ON"));
        return Describe();
    }
    if (words.size() == 2 && (is(first, "VERTEX") || is(first, "SEGMENT")) &&
        (is(words[1], "ON") || is(words[1], "OFF"))) {
        const bool on = is(words[1], "ON");
        if (is(first, "VERTEX"))
            SetVertex(on);
        else
            SetSegment(on);
        return Describe();
    }
    bool number = false;
    const double pixels = first.toDouble(&number);
    if (words.size() == 1 && number && std::isfinite(pixels)) {
        if (pixels < kMinimumTolerance || pixels > kMaximumTolerance)
            return tr("The snap tolerance lies between %1 and %2 pixels.")
                .arg(kMinimumTolerance)
                .arg(kMaximumTolerance);
        SetTolerance(pixels);
        return Describe();
    }
    return usage;
}

void TLSnapSettings::apply() {
    TLSnapEnvironment* environment = TLSnapEnvironment::Instance();
    // Snapping to nothing is snapping off: the tools would search and never find.
    environment->setEnabled(mEnabled && (mVertex || mSegment));
    environment->setSnapToVertex(mVertex);
    environment->setSnapToSegment(mSegment);
    environment->setTolerance(mTolerance);
    Q_EMIT changed();
}

}  // namespace TMObjects
