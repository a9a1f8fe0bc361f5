#pragma once

#include <QDialog>

#include "tlbase/TLString.h"

class QLineEdit;

// The shell's way into a PostgreSQL/PostGIS database: the workspace connection keys (server,
// port, database, user, password) in a form; its answer is the connection the host opens every
// table of that database from. Empty fields leave libpq its defaults (the local server, the
// user's own name).
class TLPgOpenDialog : public QDialog {
    Q_OBJECT
public:
    explicit TLPgOpenDialog(QWidget* parent = nullptr);

    // "PG:host=... port=... dbname=... user=... password=..." of what the form holds.
    TMObjects::TLString Connection() const;

private:
    QLineEdit* field(const char* name, const QString& label, bool secret = false);

    QLineEdit* mServer = nullptr;
    QLineEdit* mPort = nullptr;
    QLineEdit* mDatabase = nullptr;
    QLineEdit* mUser = nullptr;
    QLineEdit* mPassword = nullptr;
};
