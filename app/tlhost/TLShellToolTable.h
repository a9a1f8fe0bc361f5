#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace TMObjects {

class TLTool;

// The shell's one list of the plugin's tools: every class in the order the plugin registers it
// in the pool, the subsystem it belongs to and how far it is built. The palette, the Tools menu
// and the tests read it from here, so that a tool's status is changed in one place only.
class TLShellToolTable {
public:
    enum Status { Built, NotBuilt, NoBehaviour };

    struct Entry {
        const char* className;
        const char* subsystem;
        Status status;
    };

    static const std::vector<Entry>& Entries();
    static int Count() { return int(Entries().size()); }
    // The subsystems in the order their first tool appears.
    static QStringList Subsystems();
    // -1 when the class is not in the table.
    static int IndexOf(const QString& className);
    static QString StatusText(Status status);

    // The pool's tool of the table's row. The pool keeps the registration order, so the row's
    // position is tried first; the class name, read from the tool's type, confirms it, and the
    // whole pool is searched when an older or newer plugin registers in another order.
    static TLTool* PoolTool(int index);
    // Whether `tool` is an object of the named class (its type name, as the compiler mangles it).
    static bool IsOfClass(const TLTool* tool, const char* className);
};

}  // namespace TMObjects
