#include "VendorRecords.h"

#include "common/Sql.h"
#include "common/TextChecks.h"
#include "store/DatabaseFile.h"
#include "store/Dialect.h"
#include "store/Schemas.h"
#include "store/ServerReports.h"
#include "store/Store.h"
#include "vendors/VendorRepository.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlQuery>

namespace ordwell {

bool VendorDetails::isEmpty() const {
    for (const QString& v : values) {
        if (!v.isEmpty())
            return false;
    }
    return !nextOrder && orderForm.isEmpty();
}

namespace VendorRecords {

namespace {

// The `vendor` table's columns, in VendorField order (CustomerId .. OrderForm).
const char* const DetailColumns[VendorDetailCount] = {
    "customerid", "add1",        "add2",       "add3",       "county",       "postcode", "repname", "reptel",
    "repemail",   "contactname", "contacttel", "contactfax", "contactemail", "nextord",  "ordform"};

QString column(int index) {
    return QString::fromLatin1(DetailColumns[index]);
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

Status insertRow(const QSqlDatabase& db, const QString& code, const VendorDetails& values) {
    QStringList columns{QStringLiteral("vendorid")};
    QVariantList bound{code};
    for (int i = 0; i < TypedDetailCount; ++i) {
        columns << column(i);
        bound << Sql::textOrNull(values.values[i]);
    }
    columns << QStringLiteral("nextord") << QStringLiteral("ordform");
    bound << values.nextOrder.value_or(0) << values.orderForm;
    QStringList marks;
    for (int i = 0; i < columns.size(); ++i)
        marks << QStringLiteral("?");
    return Sql::run(db,
                    QStringLiteral("INSERT INTO vendor (%1) VALUES (%2)")
                        .arg(columns.join(QLatin1String(", ")), marks.join(QLatin1String(", "))),
                    bound);
}

// The typed details and the order form, over the row as it was read when `asRead` is given.
Status updateRow(const QSqlDatabase& db, const VendorDetails& values, const VendorDetails* asRead,
                 bool& changedElsewhere) {
    QStringList sets;
    QStringList compared;
    QVariantList bound;
    for (int i = 0; i < TypedDetailCount; ++i) {
        sets << column(i) + QStringLiteral(" = ?");
        compared << Dialects::exactly(db, column(i));
        bound << Sql::textOrNull(values.values[i]);
    }
    // The order form's path is kept as the folder's own, which a moved folder rewrites: only
    // the typed details tell whether someone else has been at the row.
    sets << QStringLiteral("ordform = ?");
    bound << values.orderForm;
    QString sql = QStringLiteral("UPDATE vendor SET ") + sets.join(QLatin1String(", ")) + QStringLiteral(" WHERE true");
    if (asRead) {
        sql += Dialects::unchanged(db, compared);
        for (int i = 0; i < TypedDetailCount; ++i)
            bound << Sql::textOrNull(asRead->values[i].trimmed());
    }
    auto ran = Sql::exec(db, sql, bound);
    if (!ran)
        return ran.status();
    changedElsewhere = ran->numRowsAffected() == 0;
    return Status::ok();
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

LoadedDetails LoadVendorDetails(const Store::StoreLocation& where, const QString& code) {
    const QString& dataDir = where.dataDir;
    LoadedDetails out;
    ConnectionCloser closer;
    auto db = Store::OpenVendorDatabase(where, Store::vendorFileName(code), ConnectionName);
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
        for (int i = 0; i < TypedDetailCount; ++i) {
            const QVariant v = q.value(i);
            found.values[i] = v.isNull() ? QString() : v.toString();
        }
        const QVariant next = q.value(int(VendorField::NextOrder));
        if (!next.isNull())
            found.nextOrder = next.toInt();
        found.orderForm = Store::resolveFilePath(dataDir, q.value(int(VendorField::OrderForm)).toString());
    }
    q.finish();
    if (rows == 1)
        out.details = found;
    return out;
}

Result<VendorDetails> SaveVendorDetails(const Store::StoreLocation& where, const QString& code,
                                        const VendorDetails& details, SaveMode mode, const VendorDetails* asRead,
                                        bool* changedElsewhere) {
    const auto cannotSave = [&code](const QString& why) {
        return Status::fail(QStringLiteral("The details of vendor %1 could not be saved.\n%2").arg(code, why));
    };
    VendorDetails stored = details;
    for (QString& text : stored.values)
        text = text.trimmed();

    ConnectionCloser closer;
    const QString& dataDir = where.dataDir;
    auto db = Store::OpenVendorDatabase(where, Store::vendorFileName(code), ConnectionName);
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

    if (mode == SaveMode::New || !stored.nextOrder)
        stored.nextOrder = FirstOrderNumber;
    // The report the user imported while adding is kept; otherwise the shared one.
    stored.orderForm = stored.orderForm.trimmed();
    if (stored.orderForm.isEmpty())
        stored.orderForm = defaultReportPath(dataDir);

    VendorDetails row = stored;
    row.orderForm = Store::storedFilePath(dataDir, stored.orderForm);
    // On a server the vendor's own report goes into its data, for every workstation to print with.
    if (stored.orderForm != defaultReportPath(dataDir)) {
        if (const Status kept = ServerReports::keep(*db, stored.orderForm); !kept)
            return cannotSave(kept.message());
    }
    if (insert) {
        if (const Status written = insertRow(*db, code.trimmed(), row); !written)
            return cannotSave(written.message());
        return stored;
    }
    bool changed = false;
    if (const Status written = updateRow(*db, row, asRead, changed); !written)
        return cannotSave(written.message());
    if (changed) {
        if (changedElsewhere)
            *changedElsewhere = true;
        return Status::fail(ChangedElsewhereText.arg(code.trimmed()));
    }
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

QList<FieldSpec> vendorFieldTable() {
    struct Row {
        const char* caption;
        FieldNeed need;
        VendorField next;
        const char* refusal; // Enter's message for a blank required box
    };
    using F = VendorField;
    const FieldNeed Req = FieldNeed::Required;
    const FieldNeed Opt = FieldNeed::Optional;
    static const Row rows[VendorDetailCount] = {
        {"Customer ID", Req, F::Address1, "Please enter a customer ID"},
        {"Address", Req, F::Address2, "Please enter an address"},
        {"Address", Opt, F::Address3, nullptr},
        {"Address", Opt, F::County, nullptr},
        {"County", Req, F::Postcode, "Please enter a county"},
        {"Postcode", Req, F::RepName, "Please enter a postcode"},
        {"Rep. Name", Req, F::RepPhone, "Please enter a representatives name"},
        {"Rep. Phone", Opt, F::RepEmail, nullptr},
        {"Rep. Email", Opt, F::ContactName, nullptr},
        {"Contact Name", Opt, F::ContactPhone, nullptr},
        {"Contact Phone", Opt, F::ContactFax, nullptr},
        {"Contact Fax", Opt, F::ContactEmail, nullptr},
        {"Contact Email", Opt, F::NextOrder, nullptr},
        {"Next Order", FieldNeed::Fixed, F::NextOrder, nullptr},
        {"Order Form", FieldNeed::Fixed, F::NextOrder, nullptr},
    };
    const QString title = QStringLiteral("Invalid Data");
    const auto refusal = [title](F field, const QString& message) {
        return FieldProblem{message, title, MessageIcon::Exclamation, int(field)};
    };

    QList<FieldSpec> specs;
    for (int i = 0; i < VendorDetailCount; ++i) {
        const Row& row = rows[i];
        const F field = F(i);
        FieldSpec spec;
        spec.objectName = QStringLiteral("txtbox_%1").arg(i);
        spec.caption = QString::fromLatin1(row.caption);
        spec.need = row.need;
        if (row.need != FieldNeed::Fixed) {
            spec.maxLength = vendorSchema().columnLength(QStringLiteral("vendor"), column(i));
            spec.next = int(row.next);
        }
        if (field == F::NextOrder)
            spec.kind = FieldKind::Number;
        if (field >= F::Address1 && field <= F::Address3)
            spec.accessibleName = QStringLiteral("Address line %1").arg(i - int(F::Address1) + 1);
        if (row.refusal) {
            const QString message = QString::fromLatin1(row.refusal);
            spec.onEnter = [=](QString& text) -> std::optional<FieldProblem> {
                if (blank(text))
                    return refusal(field, message);
                return std::nullopt;
            };
        }
        specs.append(spec);
    }
    specs[int(F::Postcode)].onEnter = [=](QString& text) -> std::optional<FieldProblem> {
        if (blank(text))
            return refusal(F::Postcode, QStringLiteral("Please enter a postcode"));
        text = UpperCaseCode(text);
        if (!IsValidCode(text, true))
            return refusal(F::Postcode, QStringLiteral("Please enter a valid postcode"));
        return std::nullopt;
    };
    for (F phone : {F::RepPhone, F::ContactPhone, F::ContactFax}) {
        specs[int(phone)].onEnter = [=](QString& text) -> std::optional<FieldProblem> {
            if (!IsValidPhone(text))
                return refusal(phone, QStringLiteral("Please enter a valid phone number"));
            return std::nullopt;
        };
    }
    specs[int(F::ContactEmail)].next = NextIsSave;

    FieldSpec company;
    company.objectName = QStringLiteral("txtcomp_0");
    company.caption = QStringLiteral("Company Name");
    company.maxLength = systemSchema().columnLength(QStringLiteral("vendors"), QStringLiteral("vendor"));
    company.need = FieldNeed::Required;
    company.next = int(F::Shortcode);
    company.onEnter = [](QString& text) -> std::optional<FieldProblem> {
        if (blank(text))
            return FieldProblem{QStringLiteral("Please enter a company name"), QStringLiteral("No Company name"),
                                MessageIcon::Exclamation, int(F::CompanyName)};
        return std::nullopt;
    };
    specs.append(company);

    FieldSpec shortcode;
    shortcode.objectName = QStringLiteral("txtcomp_1");
    shortcode.caption = QStringLiteral("Shortcode");
    shortcode.maxLength = ShortcodeLength;
    shortcode.need = FieldNeed::Required;
    shortcode.next = NextIsSave;
    specs.append(shortcode);
    return specs;
}

Status CreateVendorEntry(const QSqlDatabase& systemDb, const Store::StoreLocation& where, const QString& companyName,
                         const QString& shortcode) {
    const QString code = shortcode.trimmed();
    const Status added = VendorRepository::addVendor(systemDb, companyName.trimmed(), code);
    if (!added)
        return added;
    const Status created = Store::CreateVendorDatabase(where, code);
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
