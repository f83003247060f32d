#include "VendorRecords.h"

#include "common/Sql.h"
#include "common/TextChecks.h"
#include "store/DatabaseFile.h"
#include "store/Store.h"
#include "vendors/VendorRepository.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlQuery>

namespace ordwell {

const std::array<VendorDetailColumn, VendorDetailCount>& vendorDetailColumns() {
    static const std::array<VendorDetailColumn, VendorDetailCount> columns = {{
        {"customerid", "Customer ID", 12, DetailKind::Required},
        {"add1", "Address", 35, DetailKind::Required},
        {"add2", "Address", 35, DetailKind::Optional},
        {"add3", "Address", 35, DetailKind::Optional},
        {"county", "County", 15, DetailKind::Required},
        {"postcode", "Postcode", 9, DetailKind::Required},
        {"repname", "Rep. Name", 55, DetailKind::Required},
        {"reptel", "Rep. Phone", 20, DetailKind::Optional},
        {"repemail", "Rep. Email", 45, DetailKind::Optional},
        {"contactname", "Contact Name", 55, DetailKind::Optional},
        {"contacttel", "Contact Phone", 20, DetailKind::Optional},
        {"contactfax", "Contact Fax", 20, DetailKind::Optional},
        {"contactemail", "Contact Email", 45, DetailKind::Optional},
        {"nextord", "Next Order", 0, DetailKind::NeverEditable},
        {"ordform", "Order Form", 0, DetailKind::NeverEditable},
    }};
    return columns;
}

bool VendorDetails::isEmpty() const {
    for (const QString& v : values) {
        if (!v.isEmpty())
            return false;
    }
    return true;
}

namespace VendorRecords {

namespace {

// The thirteen columns the user types in, CustomerId .. ContactEmail.
constexpr int TypedCount = static_cast<int>(VendorField::NextOrder);

QString column(int index) {
    return QString::fromLatin1(vendorDetailColumns()[index].column);
}

QString native(const QString& path) {
    return QDir::toNativeSeparators(path);
}

// A required box holding only spaces is as good as empty.
bool blank(const QString& text) {
    return text.trimmed().isEmpty();
}

VendorCheck failAt(VendorField field, const QString& text, const QString& title,
                   MessageIcon icon = MessageIcon::Exclamation) {
    VendorCheck check;
    check.failure = VendorMessage{text, title, icon};
    check.focus = field;
    return check;
}

VendorCheck rewritten(VendorCheck check, VendorField field, const QString& text) {
    check.rewriteField = field;
    check.rewriteText = text;
    return check;
}

// Closes the window's own connection when a read or write is over, whatever its outcome.
struct ConnectionCloser {
    ~ConnectionCloser() { DatabaseFile::close(ConnectionName); }
};

Status writeRow(const QSqlDatabase& db, const QString& code, const VendorDetails& values, qint64 nextOrder,
                const QString& orderForm, bool insert) {
    QStringList columns;
    QVariantList bound;
    for (int i = 0; i < TypedCount; ++i) {
        columns << column(i);
        bound << Sql::textOrNull(values.values[i]);
    }
    columns << QStringLiteral("nextord") << QStringLiteral("ordform");
    bound << nextOrder << orderForm;
    QString sql;
    if (insert) {
        columns.prepend(QStringLiteral("vendorid"));
        bound.prepend(code);
        QStringList marks;
        for (int i = 0; i < columns.size(); ++i)
            marks << QStringLiteral("?");
        sql = QStringLiteral("INSERT INTO vendor (%1) VALUES (%2)")
                  .arg(columns.join(QLatin1String(", ")), marks.join(QLatin1String(", ")));
    } else {
        QStringList sets;
        for (const QString& c : columns)
            sets << c + QStringLiteral(" = ?");
        sql = QStringLiteral("UPDATE vendor SET %1").arg(sets.join(QLatin1String(", ")));
    }
    return Sql::run(db, sql, bound);
}

// A rename, or where the two places lie on different file systems a copy and then the removal
// of the original: either way the file ends up in one place only.
Status moveFile(const QString& from, const QString& to) {
    QFile file(from);
    if (file.rename(to))
        return Status::ok();
    const QString why = file.errorString();
    if (QFileInfo::exists(to) || !QFileInfo::exists(from))
        return Status::fail(why);
    if (!QFile::copy(from, to))
        return Status::fail(why);
    if (!QFile::remove(from)) {
        QFile::remove(to);
        return Status::fail(QStringLiteral("The original file could not be removed."));
    }
    return Status::ok();
}

bool sameFile(const QString& a, const QString& b) {
    const QString ca = QFileInfo(a).canonicalFilePath();
    return !ca.isEmpty() && ca == QFileInfo(b).canonicalFilePath();
}

} // namespace

QString positionText(int position, int count) {
    if (count <= 0)
        return QStringLiteral("There are no active vendors");
    return QStringLiteral("Record %1 of %2").arg(position).arg(count);
}

QString navigationMask(int position, int count) {
    if (count <= 0)
        return QStringLiteral("000000011");
    if (count == 1)
        return QStringLiteral("100000011");
    if (position <= 1)
        return QStringLiteral("100001111");
    if (position >= count)
        return QStringLiteral("100110011");
    return QStringLiteral("100111111");
}

QString vendorReportPath(const QString& dataDir, const QString& code) {
    return QDir(dataDir).filePath(code.trimmed() + Store::DefaultOrderFormFileName);
}

QString defaultReportPath(const QString& dataDir) {
    return QDir(dataDir).filePath(Store::DefaultOrderFormFileName);
}

LoadedDetails LoadVendorDetails(const QString& dataDir, const QString& code) {
    LoadedDetails out;
    ConnectionCloser closer;
    auto db = Store::OpenVendorDatabase(dataDir, Store::vendorFileName(code), ConnectionName);
    if (!db) {
        out.problem = QStringLiteral("The details of vendor %1 could not be read.\n%2").arg(code, db.message());
        return out;
    }
    QStringList columns;
    for (int i = 0; i < VendorDetailCount; ++i)
        columns << column(i);
    auto query = Sql::exec(*db, QStringLiteral("SELECT %1 FROM vendor").arg(columns.join(QLatin1String(", "))));
    if (!query) {
        out.problem = QStringLiteral("The details of vendor %1 could not be read.\n%2").arg(code, query.message());
        return out;
    }
    QSqlQuery& q = query.value();
    int rows = 0;
    VendorDetails found;
    while (q.next()) {
        // Only a single row is the vendor's: none or several leave the details empty.
        if (++rows > 1)
            break;
        for (int i = 0; i < VendorDetailCount; ++i) {
            const QVariant v = q.value(i);
            found.values[i] = v.isNull() ? QString() : v.toString();
        }
    }
    q.finish();
    if (rows == 1)
        out.details = found;
    return out;
}

Result<VendorDetails> SaveVendorDetails(const QString& dataDir, const QString& code, const VendorDetails& details,
                                        SaveMode mode) {
    const auto cannotSave = [&code](const QString& why) {
        return Status::fail(QStringLiteral("The details of vendor %1 could not be saved.\n%2").arg(code, why));
    };
    VendorDetails stored;
    for (int i = 0; i < VendorDetailCount; ++i)
        stored.values[i] = details.values[i].trimmed();

    ConnectionCloser closer;
    auto db = Store::OpenVendorDatabase(dataDir, Store::vendorFileName(code), ConnectionName);
    if (!db)
        return cannotSave(db.message());

    bool insert = mode == SaveMode::New;
    if (mode == SaveMode::Update) {
        auto rows = Sql::scalar(*db, QStringLiteral("SELECT count(*) FROM vendor"));
        if (!rows)
            return cannotSave(rows.message());
        if (rows.value().toInt() > 1)
            return cannotSave(QStringLiteral("Its database holds more than one details record."));
        // An add that never got past its first stage left no row: this save completes it.
        insert = rows.value().toInt() == 0;
    }

    QString& nextOrder = stored[VendorField::NextOrder];
    QString& orderForm = stored[VendorField::OrderForm];
    if (mode == SaveMode::New || nextOrder.isEmpty())
        nextOrder = FirstOrderNumber;
    // The report the user imported while adding is kept; otherwise the shared one.
    if (orderForm.isEmpty())
        orderForm = defaultReportPath(dataDir);
    bool isNumber = false;
    const qint64 number = nextOrder.toLongLong(&isNumber);
    if (!isNumber)
        return cannotSave(QStringLiteral("The next order number \"%1\" is not a whole number.").arg(nextOrder));

    const Status written = writeRow(*db, code.trimmed(), stored, number, orderForm, insert);
    if (!written)
        return cannotSave(written.message());
    return stored;
}

VendorCheck ValidateNewVendor(const QSqlDatabase& systemDb, const QString& companyName, const QString& shortcode) {
    if (blank(companyName))
        return failAt(VendorField::CompanyName,
                      QStringLiteral("The company name is blank, please enter a company name"),
                      QStringLiteral("Company name error"), MessageIcon::Critical);
    const QString code = UpperCaseCode(shortcode);
    const auto withCode = [&code](VendorCheck check) {
        return rewritten(std::move(check), VendorField::Shortcode, code);
    };
    if (!IsValidCode(code, false))
        return withCode(failAt(VendorField::Shortcode,
                               QStringLiteral("The vendor shortcode contains illegal characters"),
                               QStringLiteral("Illegal Shortcode")));
    if (code.size() != ShortcodeLength)
        return withCode(failAt(VendorField::Shortcode,
                               QStringLiteral("The Company shortcode must be 3 characters long, please correct this"),
                               QStringLiteral("Company shortcode error"), MessageIcon::Critical));
    const auto free = VendorRepository::codeIsFree(systemDb, code);
    if (!free)
        return withCode(failAt(VendorField::Shortcode, free.message(), QString(), MessageIcon::Critical));
    if (!free.value())
        return withCode(failAt(VendorField::Shortcode,
                               QStringLiteral("The vendor code has already been used, please enter a new vendor code"),
                               QStringLiteral("Vendor code duplicated")));
    VendorCheck passed;
    passed.focus = VendorField::Shortcode;
    return withCode(passed);
}

VendorCheck ValidateVendorDetails(const VendorDetails& d) {
    const QString postcode = UpperCaseCode(d[VendorField::Postcode]);
    const auto check = [&]() -> VendorCheck {
        const QString invalid = QStringLiteral("Invalid data");
        const QString invalidData = QStringLiteral("Invalid Data");
        if (!IsValidCode(postcode, true))
            return failAt(VendorField::Postcode, QStringLiteral("Please enter a valid postode"), invalid);
        if (blank(d[VendorField::CustomerId]))
            return failAt(VendorField::CustomerId, QStringLiteral("please enter a customer ID"), invalid);
        if (blank(d[VendorField::Address1]))
            return failAt(VendorField::Address1, QStringLiteral("Please enter a primary address"), invalid);
        if (blank(d[VendorField::County]))
            return failAt(VendorField::County, QStringLiteral("Please enter a county"), invalid);
        if (blank(postcode))
            return failAt(VendorField::Postcode, QStringLiteral("Please enter a postcode"), invalid);
        if (blank(d[VendorField::RepName]))
            return failAt(VendorField::RepName, QStringLiteral("Please enter a representatives name"), invalid);
        if (!IsValidPhone(d[VendorField::RepPhone]))
            return failAt(VendorField::RepPhone, QStringLiteral("Please enter a valid representatives phone number"),
                          invalidData);
        if (!IsValidPhone(d[VendorField::ContactPhone]))
            return failAt(VendorField::ContactPhone, QStringLiteral("Please enter a valid contact phone number"),
                          invalidData);
        if (!IsValidPhone(d[VendorField::ContactFax]))
            return failAt(VendorField::ContactFax, QStringLiteral("Please enter a valid contact fax number"),
                          invalidData);
        return {};
    };
    return rewritten(check(), VendorField::Postcode, postcode);
}

EnterCheck enterKeyCheck(VendorField box, const QString& text) {
    const QString title = QStringLiteral("Invalid Data");
    const auto next = [](VendorField field) {
        EnterCheck out;
        out.next = field;
        return out;
    };
    const auto refuse = [&](const QString& message, const QString& messageTitle) {
        EnterCheck out;
        out.check = failAt(box, message, messageTitle);
        return out;
    };
    const auto required = [&](const QString& message, VendorField then) {
        return blank(text) ? refuse(message, title) : next(then);
    };
    const auto phone = [&](VendorField then) {
        return IsValidPhone(text) ? next(then) : refuse(QStringLiteral("Please enter a valid phone number"), title);
    };
    switch (box) {
    case VendorField::CompanyName:
        return blank(text) ? refuse(QStringLiteral("Please enter a company name"), QStringLiteral("No Company name"))
                           : next(VendorField::Shortcode);
    case VendorField::CustomerId:
        return required(QStringLiteral("Please enter a customer ID"), VendorField::Address1);
    case VendorField::Address1:
        return required(QStringLiteral("Please enter an address"), VendorField::Address2);
    case VendorField::Address2:
        return next(VendorField::Address3);
    case VendorField::Address3:
        return next(VendorField::County);
    case VendorField::County:
        return required(QStringLiteral("Please enter a county"), VendorField::Postcode);
    case VendorField::Postcode: {
        if (blank(text))
            return refuse(QStringLiteral("Please enter a postcode"), title);
        const QString upper = UpperCaseCode(text);
        EnterCheck out = IsValidCode(upper, true) ? next(VendorField::RepName)
                                                  : refuse(QStringLiteral("Please enter a valid postcode"), title);
        out.check = rewritten(out.check, VendorField::Postcode, upper);
        return out;
    }
    case VendorField::RepName:
        return required(QStringLiteral("Please enter a representatives name"), VendorField::RepPhone);
    case VendorField::RepPhone:
        return phone(VendorField::RepEmail);
    case VendorField::RepEmail:
        return next(VendorField::ContactName);
    case VendorField::ContactName:
        return next(VendorField::ContactPhone);
    case VendorField::ContactPhone:
        return phone(VendorField::ContactFax);
    case VendorField::ContactFax:
        return phone(VendorField::ContactEmail);
    case VendorField::ContactEmail: {
        EnterCheck out;
        out.toSave = true;
        return out;
    }
    case VendorField::NextOrder:
    case VendorField::OrderForm:
    case VendorField::Shortcode:
        break;
    }
    return {};
}

Status CreateVendorEntry(const QSqlDatabase& systemDb, const QString& dataDir, const QString& companyName,
                         const QString& shortcode) {
    const QString code = shortcode.trimmed();
    const Status added = VendorRepository::addVendor(systemDb, companyName.trimmed(), code);
    if (!added)
        return added;
    const Status created = Store::CreateVendorDatabase(dataDir, code);
    if (created)
        return Status::ok();
    QString message = QStringLiteral("Vendor %1 could not be added because its database could not be created.\n%2")
                          .arg(code, created.message());
    const Status removed = VendorRepository::removeVendor(systemDb, code);
    if (!removed)
        message += QStringLiteral("\nIts entry in the list of vendors could not be taken out again: %1")
                       .arg(removed.message());
    return Status::fail(message);
}

ReportImport importReport(const QString& chosenPath, const QString& dataDir, const QString& code, Prompter& prompter) {
    ReportImport out;
    const QString target = vendorReportPath(dataDir, code);
    const auto failed = [&](const QString& why) {
        out.outcome = ImportOutcome::Failed;
        out.problem = QStringLiteral("The report file \"%1\" could not be moved to \"%2\".\n%3")
                          .arg(native(chosenPath), native(target), why);
        return out;
    };
    const QFileInfo source(chosenPath);
    if (!source.isFile())
        return failed(QStringLiteral("The file does not exist."));
    if (sameFile(chosenPath, target)) {
        // Already the vendor's own report: nothing to move.
        out.outcome = ImportOutcome::Imported;
        out.path = target;
        return out;
    }
    // Reports in the data folder are the shared one or other vendors': those stay where they are.
    const bool keepSource = sameFile(source.absolutePath(), dataDir);

    QString backup;
    if (QFileInfo::exists(target)) {
        if (!prompter.ask(
                QStringLiteral("The file \"%1\" already exists. Do you want to replace it?").arg(native(target)),
                QStringLiteral("Confirm File Replace"), MessageIcon::Exclamation)) {
            out.outcome = ImportOutcome::Declined;
            return out;
        }
        // Set aside rather than deleted, so a failed move can put it back.
        backup = target + QStringLiteral(".replaced");
        QFile::remove(backup);
        QFile existing(target);
        if (!existing.rename(backup))
            return failed(QStringLiteral("The existing file could not be replaced: %1").arg(existing.errorString()));
    }

    Status moved = Status::ok();
    if (keepSource) {
        QFile original(chosenPath);
        if (!original.copy(target))
            moved = Status::fail(original.errorString());
    } else {
        moved = moveFile(chosenPath, target);
    }
    if (!moved) {
        if (!backup.isEmpty())
            QFile::rename(backup, target);
        return failed(moved.message());
    }
    if (!backup.isEmpty())
        QFile::remove(backup);
    DatabaseFile::restrictToOwner(target, false);
    out.outcome = ImportOutcome::Imported;
    out.path = target;
    return out;
}

} // namespace VendorRecords
} // namespace ordwell
