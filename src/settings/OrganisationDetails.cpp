#include "OrganisationDetails.h"

#include "common/Sql.h"
#include "common/TextChecks.h"
#include "store/Dialect.h"
#include "store/Schemas.h"

#include <QStringList>

namespace ordwell {

namespace {

const std::array<DetailsFieldInfo, DetailsFieldCount>& fieldTable() {
    static const std::array<DetailsFieldInfo, DetailsFieldCount> table = [] {
        struct Row {
            const char* caption;
            const char* column;
        };
        static const Row rows[DetailsFieldCount] = {
            {"Organisation", "location"}, {"Department", "department"},
            {"Address", "add1"},          {"Address", "add2"},
            {"Address", "add3"},          {"County", "county"},
            {"Postcode", "postcode"},     {"Contact", "contact"},
            {"Telephone", "telephone"},   {"Fax", "fax"},
            {"E-mail", "email"},
        };
        const TableDef* sysset = systemSchema().table(QStringLiteral("Sysset"));
        std::array<DetailsFieldInfo, DetailsFieldCount> out;
        for (int field = 0; field < DetailsFieldCount; ++field) {
            const QString column = QString::fromLatin1(rows[field].column);
            DetailsFieldInfo& info = out[static_cast<std::size_t>(field)];
            info = {QString::fromLatin1(rows[field].caption), column, false, 0};
            for (const FieldDef& def : sysset->fields) {
                if (def.name == column) {
                    info.required = def.required;
                    info.maxLength = def.size;
                }
            }
        }
        return out;
    }();
    return table;
}

QString columnList() {
    QStringList columns;
    for (const DetailsFieldInfo& info : fieldTable())
        columns << info.column;
    return columns.join(QStringLiteral(", "));
}

bool isPostcode(const QString& text) {
    return IsValidCode(text, false);
}

const QString SaveTitle = QStringLiteral("Invalid Data");
const QString EnterTitle = QStringLiteral("Invalid data");

} // namespace

const DetailsFieldInfo& detailsFieldInfo(int field) {
    return fieldTable().at(static_cast<std::size_t>(field));
}

QList<FieldSpec> detailsFieldTable() {
    QList<FieldSpec> specs;
    for (int field = 0; field < DetailsFieldCount; ++field) {
        const DetailsFieldInfo& info = detailsFieldInfo(field);
        FieldSpec spec;
        spec.objectName = QStringLiteral("txtbox_%1").arg(field);
        spec.caption = info.caption;
        if (field >= Address1 && field <= Address3)
            spec.accessibleName = QStringLiteral("Address line %1").arg(field - Address1 + 1);
        spec.maxLength = info.maxLength;
        spec.need = info.required ? FieldNeed::Required : FieldNeed::Optional;
        spec.next = field + 1 < DetailsFieldCount ? field + 1 : NextIsSave;
        spec.onEnter = [field](QString& text) { return DetailsRules::checkOnEnter(field, text); };
        specs.append(spec);
    }
    return specs;
}

namespace DetailsRules {

QList<DetailsProblem> validateForSave(OrganisationDetails& details) {
    details[Postcode] = UpperCaseCode(details[Postcode]);
    const auto problem = [](int box, const char* text, MessageIcon icon = MessageIcon::Exclamation) {
        return DetailsProblem{QString::fromLatin1(text), SaveTitle, icon, box};
    };
    const auto empty = [&details](int field) { return [&details, field] { return details[field].isEmpty(); }; };

    CheckSequence checks;
    checks.check(empty(Location), problem(Location, "Please enter an organisation name", MessageIcon::Critical))
        .check(empty(Address1), problem(Address1, "Please enter a primary address"))
        .check(empty(County), problem(County, "Please enter a County"));
    // A postcode that could never be stored is worth pointing out even after an earlier failure.
    checks.alwaysCheck(
        [&] { return (checks.passing() && details[Postcode].isEmpty()) || !isPostcode(details[Postcode]); },
        problem(Postcode, "Please enter a valid postcode"));
    checks.check(empty(Contact), problem(Contact, "Please enter a contact name"))
        .check([&] { return details[Telephone].isEmpty() || !IsValidPhone(details[Telephone]); },
               problem(Telephone, "Please enter a valid phone number"))
        .check([&] { return !IsValidPhone(details[Fax]); }, problem(Fax, "Please enter a valid fax number"))
        .check(empty(Email), problem(Email, "Please enter an E-mail address"));
    return checks.problems();
}

std::optional<DetailsProblem> checkOnEnter(int box, QString& text) {
    auto problem = [box](const char* message) {
        return DetailsProblem{QString::fromLatin1(message), EnterTitle, MessageIcon::Exclamation, box};
    };
    switch (box) {
    case Location:
        if (text.isEmpty())
            return problem("Please enter an organisation name");
        break;
    case Address1:
        if (text.isEmpty())
            return problem("Please enter a primary address");
        break;
    case County:
        if (text.isEmpty())
            return problem("Please enter a county");
        break;
    case Postcode:
        text = UpperCaseCode(text);
        if (text.isEmpty() || !isPostcode(text))
            return problem("Please enter a valid postcode");
        break;
    case Contact:
        if (text.isEmpty())
            return problem("Please enter a contact name");
        break;
    case Telephone:
        if (text.isEmpty() || !IsValidPhone(text))
            return problem("Please enter a valid telephone number");
        break;
    case Fax:
        if (!IsValidPhone(text))
            return problem("Please enter a fax number");
        break;
    case Email:
        if (text.isEmpty())
            return problem("Please enter an email address");
        break;
    default:
        break;
    }
    return std::nullopt;
}

} // namespace DetailsRules

OrganisationDetailsStore::OrganisationDetailsStore(QSqlDatabase db) : m_db(std::move(db)) {}

Result<std::optional<OrganisationDetails>> OrganisationDetailsStore::load() const {
    auto query = Sql::exec(m_db, QStringLiteral("SELECT %1 FROM Sysset LIMIT 1").arg(columnList()));
    if (!query)
        return Status::fail(QStringLiteral("The organisation's details could not be read.\n%1").arg(query.message()));
    if (!query.value().next())
        return std::optional<OrganisationDetails>();
    OrganisationDetails details;
    for (int field = 0; field < DetailsFieldCount; ++field)
        details[field] = query.value().value(field).toString();
    return std::optional<OrganisationDetails>(details);
}

Status OrganisationDetailsStore::save(const OrganisationDetails& details, const OrganisationDetails* asRead,
                                      bool* changedElsewhere) const {
    auto failed = [](const QString& reason) {
        return Status::fail(
            QStringLiteral("The organisation's details could not be saved, so nothing was changed.\n%1").arg(reason));
    };

    QVariantList values;
    for (int field = 0; field < DetailsFieldCount; ++field)
        values << Sql::textOrNull(details[field]);

    // Reading the current key and writing the row are one step, so two saves can never both
    // see an empty table and add a row each.
    Sql::Transaction transaction(m_db);
    if (!transaction.isActive()) {
        const QString reason = Sql::describe(m_db.lastError());
        return failed(reason.isEmpty() ? QStringLiteral("The database is not open.") : reason);
    }
    auto currentKey = Sql::scalar(m_db, QStringLiteral("SELECT location FROM Sysset LIMIT 1"));
    if (!currentKey)
        return failed(currentKey.message());

    Status written;
    if (!currentKey.value().isValid()) {
        QStringList marks;
        for (int field = 0; field < DetailsFieldCount; ++field)
            marks << QStringLiteral("?");
        written = Sql::run(
            m_db, QStringLiteral("INSERT INTO Sysset (%1) VALUES (%2)").arg(columnList(), marks.join(QLatin1Char(','))),
            values);
    } else {
        QStringList assignments;
        for (const DetailsFieldInfo& info : fieldTable())
            assignments << info.column + QStringLiteral(" = ?");
        // The organisation's name is the row's key, so the old name finds the row to rewrite.
        values << currentKey.value();
        QString sql =
            QStringLiteral("UPDATE Sysset SET %1 WHERE location = ?").arg(assignments.join(QStringLiteral(", ")));
        if (asRead) {
            QStringList compared;
            for (const DetailsFieldInfo& info : fieldTable())
                compared << Dialects::exactly(m_db, info.column);
            sql += Dialects::unchanged(m_db, compared);
            for (int field = 0; field < DetailsFieldCount; ++field)
                values << Sql::textOrNull((*asRead)[field]);
        }
        auto ran = Sql::exec(m_db, sql, values);
        written = ran.status();
        if (ran && asRead && ran->numRowsAffected() == 0) {
            if (changedElsewhere)
                *changedElsewhere = true;
            return Status::fail(ChangedElsewhereText);
        }
    }
    if (!written)
        return failed(written.message());
    const Status committed = transaction.commit();
    if (!committed)
        return failed(committed.message());
    return Status::ok();
}

} // namespace ordwell
