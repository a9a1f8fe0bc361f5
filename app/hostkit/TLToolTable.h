#pragma once

#include <string>
#include <vector>

namespace TMObjects {

class TLTool;

// The hosts' one list of the plugin's tools: every class in the order the plugin registers it in
// the pool, the name it registers under for typed input (null for a tool that never does), the
// subsystem it belongs to and how far it is built. The desktop's palette and the session runner
// read it from here, so that a tool's status is changed in one place only.
class TLToolTable {
public:
    enum Status { Built, NotBuilt, NoBehaviour };

    struct Entry {
        const char* className;
        const char* registeredName;
        const char* subsystem;
        Status status;
    };

    static const std::vector<Entry>& Entries();
    static int Count() { return int(Entries().size()); }
    // -1 when no row has that class, or that registered name.
    static int IndexOf(const std::string& className);
    static int IndexOfRegisteredName(const std::string& name);

    // The pool's tool of the table's row. The pool keeps the registration order, so the row's
    // position is tried first; the class name, read from the tool's type, confirms it, and the
    // whole pool is searched when an older or newer plugin registers in another order.
    static TLTool* PoolTool(int index);
    // Whether `tool` is an object of the named class (its type name, as the compiler mangles it).
    static bool IsOfClass(const TLTool* tool, const char* className);
};

}  // namespace TMObjects
