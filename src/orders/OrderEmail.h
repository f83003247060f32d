#pragma once

#include "common/Status.h"

#include <QSqlDatabase>
#include <QString>
#include <QStringList>

namespace ordwell {

// E-mailing an order to the vendor: the vendor's own order form rendered to a PDF in a private
// folder, and the user's own mail program opened on a message to the vendor's contact (else
// the representative) with the PDF attached, through the desktop's xdg-email. Sending the order
// this way counts as sending it as an export does: the order and its live lines become "X".
namespace OrderEmail {

struct Mail {
    QString recipient;
    QString subject;
    QString body;
    QString attachment; // the PDF
};

// Where the PDFs go: a folder of the user's cache only they can read. Files a week old are
// cleared away each time; the mail program reads a new one after xdg-email has returned.
QString outgoingFolder();

// Checks the order may be sent (live, entered, printed or exported already), finds the
// recipient and writes the PDF into `folder`. Nothing is marked.
Result<Mail> prepare(const QSqlDatabase& systemDb, const QSqlDatabase& vendorDb, const QString& dataDir,
                     const QString& vendorCode, const QString& vendorName, const QString& orderId,
                     const QString& folder);

// xdg-email's arguments for the mail.
QStringList mailArguments(const Mail& mail);

// Opens the mail program; when it was started, the order is marked sent. When no mail program
// answers, nothing is marked and the message says so (the PDF stays where `mail` says).
Status send(const QSqlDatabase& vendorDb, const QString& orderId, const Mail& mail);

} // namespace OrderEmail
} // namespace ordwell
