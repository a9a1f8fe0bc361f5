#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <map>

namespace TMObjects {

// The shell's own typed commands (SNAP, CRS, TABLE, ...), beside the tools' input. A line that
// begins with an apostrophe is the shell's at any time, also while a tool waits for input, as
// transparent commands are in drawing programs ("'SNAP OFF" in the middle of a line). With no
// tool waiting, a line whose first word names a shell command is the shell's as well. Names are
// compared without regard to case.
class TLShellCommands {
public:
    // Runs the command on the words after its name and answers what the history shows.
    using Handler = std::function<QString(const QStringList& words)>;

    void Add(const QString& name, const QString& help, Handler handler);

    // Whether the line is the shell's, given whether a tool waits for typed input.
    bool Claims(const QString& line, bool toolWaiting) const;
    // Runs a claimed line; the answer for the history.
    QString Run(const QString& line) const;
    // "SNAP, CRS, TABLE": the names, for messages.
    QString Names() const;
    // One line per command: name and help.
    QStringList Help() const;

private:
    struct Command {
        QString help;
        Handler handler;
    };
    static QStringList words(const QString& line);

    std::map<QString, Command> mCommands;  // by upper-case name
    QStringList mOrder;
};

}  // namespace TMObjects
