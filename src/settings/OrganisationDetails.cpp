#include "OrganisationDetails.h"

#include "common/Sql.h"
#include "common/TextChecks.h"

#include <QStringList>

namespace ordwell {

namespace {

const std::array<DetailsFieldInfo, DetailsFieldCount>& fieldTable() {
    static const std::array<DetailsFieldInfo, DetailsFieldCount> table = {{
        {QStringLiteral("Organisation"), QStringLiteral("location"), true, 50},
        {QStringLiteral("Department"), QStringLiteral("department"), false, 35},
        {QStringLiteral("Address"), QStringLiteral("add1"), true, 35},
        {QStringLiteral("Address"), QStringLiteral("add2"), false, 35},
        {QStringLiteral("Address"), QStringLiteral("add3"), false, 35},
        {QStringLiteral("County"), QStringLiteral("county"), true, 15},
        {QStringLiteral("Postcode"), QStringLiteral("postcode"), true, 9},
        {QStringLiteral("Contact"), QStringLiteral("contact"), true, 55},
        {QStringLiteral("Telephone"), QStringLiteral("telephone"), true, 20},
        {QStringLiteral("Fax"), QStringLiteral("fax"), false, 20},
        {QStringLiteral("E-mail"), QStringLiteral("email"), true, 45},
    }};
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

namespace DetailsRules {

QList<DetailsProblem> validateForSave(OrganisationDetails& details) {
    details[Postcode] = UpperCaseCode(details[Postcode]);

    QList<DetailsProblem> problems;
    // Once one check has failed the rest stay quiet, except the postcode's characters: a
    // postcode that could never be stored is always worth pointing out.
    auto fail = [&](int box, const char* text, MessageIcon icon = MessageIcon::Exclamation) {
        problems.append({QString::fromLatin1(text), SaveTitle, icon, box});
    };
    auto valid = [&] { return problems.isEmpty(); };

    if (details[Location].isEmpty())
        fail(Location, "Please enter an organisation name", MessageIcon::Critical);
    if (valid() && details[Address1].isEmpty())
        fail(Address1, "Please enter a primary address");
    if (valid() && details[County].isEmpty())
        fail(County, "Please enter a County");
    if ((valid() && details[Postcode].isEmpty()) || !isPostcode(details[Postcode]))
        fail(Postcode, "Please enter a valid postcode");
    if (valid() && details[Contact].isEmpty())
        fail(Contact, "Please enter a contact name");
    if (valid() && (details[Telephone].isEmpty() || !IsValidPhone(details[Telephone])))
        fail(Telephone, "Please enter a valid phone number");
    if (valid() && !IsValidPhone(details[Fax]))
        fail(Fax, "Please enter a valid fax number");
    if (valid() && details[Email].isEmpty())
        fail(Email, "Please enter an E-mail address");
    return problems;
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

Status OrganisationDetailsStore::save(const OrganisationDetails& details) const {
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
        written = Sql::run(
            m_db, QStringLiteral("UPDATE Sysset SET %1 WHERE location = ?").arg(assignments.join(QStringLiteral(", "))),
            values);
    }
    if (!written)
        return failed(written.message());
    const Status committed = transaction.commit();
    if (!committed)
        return failed(committed.message());
    return Status::ok();
}

} // namespace ordwell
