#include "TLPgOpenDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QIntValidator>
#include <QLineEdit>
#include <QPushButton>
#include <map>

#include "TLShellText.h"
#include "tlbase/TLConnectionKeys.h"
#include "tmgis/TLPgConnection.h"

using namespace TMObjects;

TLPgOpenDialog::TLPgOpenDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Open PostGIS Layers"));
    setObjectName(QStringLiteral("TLPgOpenDialog"));
    auto* form = new QFormLayout(this);
    mServer = field("mLineEditServer", tr("Server:"));
    mServer->setPlaceholderText(tr("host name, address or socket folder"));
    mPort = field("mLineEditPort", tr("Port:"));
    mPort->setPlaceholderText(QStringLiteral("5432"));
    mPort->setValidator(new QIntValidator(1, 65535, mPort));
    mDatabase = field("mLineEditDatabase", tr("Database:"));
    mUser = field("mLineEditUser", tr("User:"));
    mPassword = field("mLineEditPassword", tr("Password:"), true);
    for (QLineEdit* edit : {mServer, mPort, mDatabase, mUser, mPassword})
        form->addRow(edit->accessibleName(), edit);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName(QStringLiteral("mButtonBox"));
    QPushButton* open = buttons->button(QDialogButtonBox::Ok);
    open->setText(tr("Open"));
    // Without a database there is nothing to open.
    open->setEnabled(false);
    connect(mDatabase, &QLineEdit::textChanged, open,
            [open](const QString& text) { open->setEnabled(!text.trimmed().isEmpty()); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
}

QLineEdit* TLPgOpenDialog::field(const char* name, const QString& label, bool secret) {
    auto* edit = new QLineEdit(this);
    edit->setObjectName(QString::fromLatin1(name));
    edit->setAccessibleName(label);
    if (secret) edit->setEchoMode(QLineEdit::Password);
    return edit;
}

TLString TLPgOpenDialog::Connection() const {
    auto text = [](const QLineEdit* edit) { return ToTLString(edit->text().trimmed()); };
    // The password is taken as typed: blanks may belong to it.
    const std::map<TLString, TLString> keys{{CONNECT_SERVER, text(mServer)},
                                            {CONNECT_INSTANCE, text(mPort)},
                                            {CONNECT_DATABASE, text(mDatabase)},
                                            {CONNECT_USER, text(mUser)},
                                            {CONNECT_PASSWORD, ToTLString(mPassword->text())}};
    return TLPgConnection::FromProperties(keys);
}
