#include "OrderExport.h"

#include "OrderHeadRow.h"
#include "OrderTransitions.h"
#include "common/Sql.h"
#include "settings/OrganisationDetails.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSqlQuery>

namespace ordwell::OrderExport {

QString CompleteText(const QString& orderId) {
    return QStringLiteral("The order %1 has been exported to the desktop sucessfully").arg(orderId);
}

QString FileName(const QString& orderId) {
    return orderId + QStringLiteral(".csv");
}

namespace {

Result<QStringList> fromFields(const QSqlDatabase& systemDb) {
    auto loaded = OrganisationDetailsStore(systemDb).load();
    if (!loaded)
        return loaded.status();
    const OrganisationDetails details = loaded.value().value_or(OrganisationDetails());
    QStringList fields;
    for (int field : {Location, Department, Address1, Address2, Address3, County, Postcode, Contact, Telephone, Email})
        fields << details[field];
    return fields;
}

Result<QStringList> toFields(const QSqlDatabase& vendorDb, const QString& vendorName) {
    auto query = Sql::exec(vendorDb, QStringLiteral("SELECT customerid, add1, add2, add3, county, postcode, repname, "
                                                    "reptel, repemail, contactname, contacttel, contactfax, "
                                                    "contactemail FROM vendor LIMIT 1"));
    if (!query)
        return query.status();
    QSqlQuery& q = query.value();
    if (!q.next())
        return Status::fail(QStringLiteral("The vendor's details could not be found, so the order was not exported."));
    QStringList fields{q.value(0).toString(), vendorName};
    for (int i = 1; i < 13; ++i)
        fields << q.value(i).toString();
    return fields;
}

Status addLines(const QSqlDatabase& vendorDb, const QString& orderId, const QLocale& locale, ExportTexts& texts) {
    auto query = Sql::exec(vendorDb,
                           QStringLiteral("SELECT l.line, l.code, i.descr, l.qty, l.price, l.lineval, i.code "
                                          "FROM orderline l LEFT JOIN items i ON i.code = l.code "
                                          "WHERE l.orderid = ? ORDER BY l.line"),
                           {orderId});
    if (!query)
        return query.status();
    QSqlQuery& q = query.value();
    while (q.next()) {
        ExportLineTexts line;
        line.line = q.value(0).toString();
        line.code = q.value(1).toString();
        if (!q.value(6).isNull())
            line.description = q.value(2).toString();
        line.quantity = q.value(3).toString();
        line.price = ExportRecords::PlainPrice(Money::fromTenThousandths(q.value(4).toLongLong()), locale);
        line.value = Money::fromTenThousandths(q.value(5).toLongLong()).toString(locale);
        texts.lines << line;
    }
    return Status::ok();
}

std::optional<ExportResult> missingFolder(const QString& desktopDir, const QString& path) {
    if (!desktopDir.isEmpty() && QFileInfo(desktopDir).isDir())
        return std::nullopt;
    ExportResult result;
    result.path = path;
    result.message = QStringLiteral("The order could not be exported because the desktop folder \"%1\" does not "
                                    "exist.")
                         .arg(QDir::toNativeSeparators(desktopDir));
    return result;
}

} // namespace

Result<ExportTexts> GatherTexts(const QSqlDatabase& systemDb, const QSqlDatabase& vendorDb, const QString& vendorName,
                                const QString& orderId, const QLocale& locale) {
    auto order = OrderHeadRow::read(vendorDb, orderId);
    if (!order)
        return order.status();
    if (!order.value())
        return Status::fail(QStringLiteral("The order %1 could not be found.").arg(orderId));
    const OrderHeadRow& head = *order.value();
    ExportTexts texts;
    auto from = fromFields(systemDb);
    if (!from)
        return from.status();
    texts.from = from.value();
    auto to = toFields(vendorDb, vendorName);
    if (!to)
        return to.status();
    texts.to = to.value();
    texts.orderId = head.orderId;
    texts.orderDate = locale.toString(head.orderDate, QLocale::ShortFormat);
    texts.name = head.name;
    texts.reference = head.reference;
    texts.total = head.total.toString(locale);
    texts.note1 = head.note1;
    texts.note2 = head.note2;
    if (Status s = addLines(vendorDb, orderId, locale, texts); !s)
        return s;
    return texts;
}

ExportResult WriteNewFile(const QString& path, const QByteArray& contents) {
    ExportResult result;
    result.path = path;
    // The name is compared exactly: a file whose name differs only in letter case is another file.
    if (QFileInfo(path).exists() || QFileInfo(path).isSymLink()) {
        result.outcome = Outcome::FileExists;
        return result;
    }
    QSaveFile file(path);
    file.setDirectWriteFallback(false);
    // Flushed before the commit: a write that fails only when the buffer is flushed (a full
    // disk) would otherwise still be committed, as an empty file.
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size() || !file.flush() ||
        !file.commit()) {
        result.message = QStringLiteral("The order could not be exported because the file \"%1\" could not be "
                                        "written: %2")
                             .arg(QDir::toNativeSeparators(path), file.errorString());
        return result;
    }
    result.outcome = Outcome::Exported;
    return result;
}

ExportResult WriteExportFile(const QString& desktopDir, const QString& orderId, const QByteArray& contents) {
    const QString path = QDir(desktopDir).filePath(FileName(orderId));
    if (auto missing = missingFolder(desktopDir, path))
        return *missing;
    return WriteNewFile(path, contents);
}

ExportResult WriteAndMark(const QSqlDatabase& vendorDb, const QString& orderId, const QString& path,
                          const QByteArray& contents) {
    ExportResult result = WriteNewFile(path, contents);
    if (result.outcome != Outcome::Exported)
        return result;
    const Status marked = OrderTransitions::moveOrder(vendorDb, orderId, OrderStatus::Exported, QDate::currentDate());
    if (!marked) {
        QFile::remove(result.path);
        result.outcome = Outcome::Failed;
        result.message = QStringLiteral("The order could not be marked as exported, so its file was not kept: %1")
                             .arg(marked.message());
    }
    return result;
}

ExportResult ExportOrder(const QSqlDatabase& systemDb, const QSqlDatabase& vendorDb, const QString& vendorName,
                         const QString& desktopDir, const QString& orderId) {
    // Refused before anything is read, exactly as when the file turns up while writing.
    const QString existing = QDir(desktopDir).filePath(FileName(orderId));
    if (!desktopDir.isEmpty() && QFileInfo(existing).exists())
        return ExportResult{Outcome::FileExists, {}, existing};
    auto texts = GatherTexts(systemDb, vendorDb, vendorName, orderId);
    if (!texts) {
        ExportResult failed;
        failed.message = texts.message();
        return failed;
    }
    if (auto missing = missingFolder(desktopDir, existing))
        return *missing;
    return WriteAndMark(vendorDb, orderId, existing, ExportRecords::FileContents(texts.value()));
}

} // namespace ordwell::OrderExport
