#include "OrderEmail.h"

#include "OrderPrinting.h"
#include "OrderTransitions.h"
#include "common/Sql.h"
#include "reports/ReportEngine.h"
#include "settings/OrganisationDetails.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace ordwell::OrderEmail {

namespace {

const QString MailProgram = QStringLiteral("xdg-email");

void clearOldFiles(const QString& folder) {
    const QDateTime weekAgo = QDateTime::currentDateTime().addDays(-7);
    for (const QFileInfo& file : QDir(folder).entryInfoList({QStringLiteral("*.pdf")}, QDir::Files)) {
        if (file.lastModified() < weekAgo)
            QFile::remove(file.absoluteFilePath());
    }
}

} // namespace

QString outgoingFolder() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::CacheLocation))
        .filePath(QStringLiteral("Outgoing mail"));
}

Result<Mail> prepare(const QSqlDatabase& systemDb, const QSqlDatabase& vendorDb, const QString& dataDir,
                     const QString& vendorCode, const QString& vendorName, const QString& orderId,
                     const QString& folder) {
    if (const Status sendable = OrderTransitions::maySend(vendorDb, orderId); !sendable)
        return sendable;

    auto vendor = Sql::exec(vendorDb, QStringLiteral("SELECT contactemail, repemail, contactname FROM vendor"));
    if (!vendor)
        return vendor.status();
    Mail mail;
    QString contact;
    if (vendor.value().next()) {
        const QString contactEmail = vendor.value().value(0).toString().trimmed();
        mail.recipient = contactEmail.isEmpty() ? vendor.value().value(1).toString().trimmed() : contactEmail;
        contact = contactEmail.isEmpty() ? QString() : vendor.value().value(2).toString().trimmed();
    }
    if (mail.recipient.isEmpty())
        return Status::fail(QStringLiteral("Vendor %1 has no e-mail address: give the contact's or the "
                                           "representative's in the vendor window first.")
                                .arg(vendorCode));

    const auto details = OrganisationDetailsStore(systemDb).load();
    if (!details)
        return details.status();
    const OrganisationDetails organisation = details->value_or(OrganisationDetails{});
    mail.subject = QStringLiteral("Order %1 from %2").arg(orderId, organisation[Location]);
    QStringList signature;
    for (int field : {int(Contact), int(Location), int(Telephone), int(Email)}) {
        if (!organisation[field].trimmed().isEmpty())
            signature << organisation[field].trimmed();
    }
    mail.body = QStringLiteral("Dear %1,\n\nPlease find attached our order %2.\n\nKind regards,\n%3\n")
                    .arg(contact.isEmpty() ? QStringLiteral("Sir or Madam") : contact, orderId,
                         signature.join(QLatin1Char('\n')));

    if (!QDir().mkpath(folder))
        return Status::fail(QStringLiteral("The folder %1 could not be made for the order's PDF.")
                                .arg(QDir::toNativeSeparators(folder)));
    QFile::setPermissions(folder, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    clearOldFiles(folder);
    const auto reportFile = OrderPrinting::OrderFormFile(vendorDb, dataDir);
    if (!reportFile)
        return reportFile.status();
    const auto parameters = OrderPrinting::PrintParameters(systemDb, orderId);
    if (!parameters)
        return parameters.status();
    ReportRequest request;
    request.reportFile = *reportFile;
    request.databaseFile = vendorDb.databaseName();
    if (vendorDb.driverName() == QLatin1String("QPSQL"))
        request.server = vendorDb.connectOptions();
    request.vendorCode = vendorCode;
    request.vendorName = vendorName;
    request.strictParameters = false;
    for (auto it = parameters->cbegin(); it != parameters->cend(); ++it)
        request.parameters.insert(it.key(), it.value());
    mail.attachment = QDir(folder).filePath(orderId + QStringLiteral(".pdf"));
    if (Status written = ReportEngine::renderToPdf(request, mail.attachment); !written)
        return written;
    return mail;
}

QStringList mailArguments(const Mail& mail) {
    return {QStringLiteral("--utf8"),
            QStringLiteral("--subject"),
            mail.subject,
            QStringLiteral("--body"),
            mail.body,
            QStringLiteral("--attach"),
            mail.attachment,
            mail.recipient};
}

Status send(const QSqlDatabase& vendorDb, const QString& orderId, const Mail& mail) {
    const QString program = QStandardPaths::findExecutable(MailProgram);
    if (program.isEmpty())
        return Status::fail(QStringLiteral("No mail program could be opened: xdg-email is missing (Debian package "
                                           "xdg-utils). The order's PDF is %1.")
                                .arg(QDir::toNativeSeparators(mail.attachment)));
    QProcess mailer;
    mailer.start(program, mailArguments(mail));
    // xdg-email hands the message over and returns; a mail program it cannot find is its exit code.
    if (!mailer.waitForFinished(60000) || mailer.exitStatus() != QProcess::NormalExit || mailer.exitCode() != 0) {
        mailer.kill();
        return Status::fail(QStringLiteral("No mail program answered (xdg-email: %1). The order's PDF is %2.")
                                .arg(mailer.exitCode() != 0 ? QStringLiteral("exit code %1").arg(mailer.exitCode())
                                                            : mailer.errorString(),
                                     QDir::toNativeSeparators(mail.attachment)));
    }
    // Sent as an export sends it: the order and its live lines "X" in one step.
    const Status marked = OrderTransitions::moveOrder(vendorDb, orderId, OrderStatus::Exported, QDate::currentDate());
    if (!marked)
        return Status::fail(
            QStringLiteral("The mail was opened, but the order could not be marked as sent: %1").arg(marked.message()));
    return Status::ok();
}

} // namespace ordwell::OrderEmail
