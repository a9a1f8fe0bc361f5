#pragma once

#include <QObject>
#include <QString>

namespace TMObjects {

// The shell's snapping, kept in the user's settings and put into the host's snap environment,
// which the tools' snap tools read. A new user finds it on, for vertices and segments, at
// kDefaultTolerance pixels: a cartographer expects a click near a corner to land on it.
// Changes are written at once, so that a crash keeps them too.
class TLSnapSettings : public QObject {
    Q_OBJECT

public:
    static constexpr double kDefaultTolerance = 10.0;
    static constexpr double kMinimumTolerance = 1.0;
    static constexpr double kMaximumTolerance = 100.0;

    explicit TLSnapSettings(QObject* parent = nullptr);

    bool Enabled() const { return mEnabled; }
    bool Vertex() const { return mVertex; }
    bool Segment() const { return mSegment; }
    double Tolerance() const { return mTolerance; }

    void SetEnabled(bool on);
    void SetVertex(bool on);
    void SetSegment(bool on);
    // Clamped into [kMinimumTolerance, kMaximumTolerance].
    void SetTolerance(double pixels);

    // "Snap: on, vertex and segment, 10 pixels."
    QString Describe() const;
    // The typed SNAP command, its words after the name: none toggles snapping; ON, OFF; VERTEX
    // or SEGMENT followed by ON or OFF; a number sets the tolerance in pixels. The answer says
    // what snapping is now, or what was not understood.
    QString RunCommand(const QStringList& words);

Q_SIGNALS:
    void changed();

private:
    void apply();

    bool mEnabled = true;
    bool mVertex = true;
    bool mSegment = true;
    double mTolerance = kDefaultTolerance;
};

}  // namespace TMObjects
