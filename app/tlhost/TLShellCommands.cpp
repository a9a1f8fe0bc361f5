#include "TLShellCommands.h"

#include <QObject>
#include <QRegularExpression>

namespace TMObjects {

void TLShellCommands::Add(const QString& name, const QString& help, Handler handler) {
    const QString key = name.toUpper();
    if (!mCommands.count(key)) mOrder << key;
    mCommands[key] = Command{help, std::move(handler)};
}

QStringList TLShellCommands::words(const QString& line) {
    QString text = line.trimmed();
    if (text.startsWith(QLatin1Char('\''))) text.remove(0, 1);
    return text.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
}

bool TLShellCommands::Claims(const QString& line, bool toolWaiting) const {
    const bool transparent = line.trimmed().startsWith(QLatin1Char('\''));
    if (toolWaiting && !transparent) return false;
    const QStringList parts = words(line);
    // A lone apostrophe is a slip the shell answers, rather than input a tool would not expect.
    if (parts.isEmpty()) return transparent;
    return transparent || mCommands.count(parts.front().toUpper()) != 0;
}

QString TLShellCommands::Run(const QString& line) const {
    QStringList parts = words(line);
    if (parts.isEmpty())
        return QObject::tr("A shell command follows the apostrophe: %1.").arg(Names());
    const auto found = mCommands.find(parts.front().toUpper());
    if (found == mCommands.end())
        return QObject::tr("Unknown command %1. Shell commands: %2.").arg(parts.front(), Names());
    parts.removeFirst();
    return found->second.handler(parts);
}

QString TLShellCommands::Names() const {
    return mOrder.join(QStringLiteral(", "));
}

QStringList TLShellCommands::Help() const {
    QStringList lines;
    for (const QString& name : mOrder)
        lines << QStringLiteral("%1  %2").arg(name, mCommands.at(name).help);
    return lines;
}

}  // namespace TMObjects
