#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "hostkit/TLToolTable.h"

namespace TMObjects {

class TLTool;

// The host kit's table of the plugin's tools as the shell's widgets read it: the same rows, with
// the texts of subsystems and states as the palette and the Tools menu show them.
class TLShellToolTable {
public:
    using Status = TLToolTable::Status;
    static constexpr Status Built = TLToolTable::Built;
    static constexpr Status NotBuilt = TLToolTable::NotBuilt;
    static constexpr Status NoBehaviour = TLToolTable::NoBehaviour;
    using Entry = TLToolTable::Entry;

    static const std::vector<Entry>& Entries() { return TLToolTable::Entries(); }
    static int Count() { return TLToolTable::Count(); }
    // The subsystems in the order their first tool appears.
    static QStringList Subsystems();
    // -1 when the class is not in the table.
    static int IndexOf(const QString& className);
    static QString StatusText(Status status);
    static TLTool* PoolTool(int index) { return TLToolTable::PoolTool(index); }
};

}  // namespace TMObjects
