#include "DatabaseServerDialog.h"

#include "ServerChoice.h"
#include "common/Prompter.h"
#include "common/WaitCursor.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QVBoxLayout>

namespace ordwell {

namespace {
const QString Title = QStringLiteral("Database Server");
}

DatabaseServerDialog::DatabaseServerDialog(QSettings& settings, Prompter& prompter, const QString& inUse,
                                           QWidget* parent)
    : QDialog(parent), m_settings(settings), m_prompter(prompter) {
    setObjectName(QStringLiteral("frmdbserver"));
    setWindowTitle(Title);
    auto* layout = new QVBoxLayout(this);

    auto* now = new QLabel(QStringLiteral("The data in use now: %1.").arg(inUse), this);
    now->setObjectName(QStringLiteral("lblinuse"));
    now->setWordWrap(true);
    layout->addWidget(now);

    m_files = new QRadioButton(QStringLiteral("Keep the data in the &data folder on this computer"), this);
    m_files->setObjectName(QStringLiteral("optfiles"));
    m_server =
        new QRadioButton(QStringLiteral("Keep the data on a &PostgreSQL server shared by several computers"), this);
    m_server->setObjectName(QStringLiteral("optserver"));
    layout->addWidget(m_files);
    layout->addWidget(m_server);

    auto* form = new QFormLayout;
    m_connection = new QLineEdit(this);
    m_connection->setObjectName(QStringLiteral("txtconnection"));
    m_connection->setPlaceholderText(QStringLiteral("postgresql://clerk@shop-server/ordwell"));
    m_connection->setMinimumWidth(m_connection->fontMetrics().horizontalAdvance(QLatin1Char('x')) * 48);
    auto* caption = new QLabel(QStringLiteral("&Connection:"), this);
    caption->setObjectName(QStringLiteral("lblconnection"));
    caption->setBuddy(m_connection);
    form->addRow(caption, m_connection);
    layout->addLayout(form);

    auto* hint = new QLabel(QStringLiteral("A postgresql:// address or key=value pairs. Keep the password in "
                                           "PostgreSQL's password file (~/.pgpass), never here."),
                            this);
    hint->setObjectName(QStringLiteral("lblhint"));
    hint->setWordWrap(true);
    layout->addWidget(hint);

    m_result = new QLabel(this);
    m_result->setObjectName(QStringLiteral("lblresult"));
    m_result->setWordWrap(true);
    m_result->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(m_result);

    auto* buttons = new QDialogButtonBox(this);
    m_test = buttons->addButton(QStringLiteral("&Test Connection"), QDialogButtonBox::ActionRole);
    m_test->setObjectName(QStringLiteral("cmdtest"));
    QPushButton* saveButton = buttons->addButton(QStringLiteral("&Save"), QDialogButtonBox::AcceptRole);
    saveButton->setObjectName(QStringLiteral("cmdsave"));
    saveButton->setDefault(true);
    QPushButton* cancel = buttons->addButton(QStringLiteral("Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cmdcancel"));
    layout->addWidget(buttons);

    const QString kept = ServerChoice::kept(m_settings);
    m_connection->setText(kept);
    (kept.isEmpty() ? m_files : m_server)->setChecked(true);
    connect(m_files, &QRadioButton::toggled, this, &DatabaseServerDialog::followChoice);
    connect(m_test, &QPushButton::clicked, this, &DatabaseServerDialog::testConnection);
    connect(saveButton, &QPushButton::clicked, this, [this] {
        if (save())
            accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    followChoice();
}

void DatabaseServerDialog::followChoice() {
    const bool server = m_server->isChecked();
    m_connection->setEnabled(server);
    m_test->setEnabled(server);
    m_result->clear();
    if (server)
        m_connection->setFocus();
}

QString DatabaseServerDialog::chosenConnection() const {
    return m_server->isChecked() ? m_connection->text().trimmed() : QString();
}

void DatabaseServerDialog::testConnection() {
    Result<QString> found = Status::fail(QString());
    {
        WaitCursor wait;
        found = ServerChoice::test(m_connection->text());
    }
    m_result->setText(found ? *found : found.message());
    m_result->setAccessibleName(m_result->text());
}

bool DatabaseServerDialog::save() {
    const QString chosen = chosenConnection();
    if (m_server->isChecked() && chosen.isEmpty()) {
        m_prompter.message(QStringLiteral("Type the server's address, or choose the data folder."), Title,
                           MessageIcon::Exclamation);
        m_connection->setFocus();
        return false;
    }
    if (Status kept = ServerChoice::keep(m_settings, chosen); !kept) {
        m_prompter.message(kept.message(), Title, MessageIcon::Exclamation);
        m_connection->setFocus();
        return false;
    }
    m_prompter.message(QStringLiteral("Ordwell uses the new place for its data from its next start."), Title,
                       MessageIcon::Information);
    return true;
}

} // namespace ordwell
