#pragma once

#include "common/Prompter.h"
#include "common/RecordFields.h"
#include "common/Status.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <array>
#include <optional>

namespace ordwell {

// The organisation's own details, printed on order forms and written into exported orders.
// The field order is the order of the boxes on the system defaults window.
enum DetailsField {
    Location,
    Department,
    Address1,
    Address2,
    Address3,
    County,
    Postcode,
    Contact,
    Telephone,
    Fax,
    Email,
    DetailsFieldCount
};

struct OrganisationDetails {
    std::array<QString, DetailsFieldCount> values;

    QString& operator[](int field) { return values.at(static_cast<std::size_t>(field)); }
    const QString& operator[](int field) const { return values.at(static_cast<std::size_t>(field)); }
    bool operator==(const OrganisationDetails& other) const = default;
};

// How one field is shown and stored: its caption, column, whether a value is required, and
// the longest value the column holds (from the system database's schema).
struct DetailsFieldInfo {
    QString caption;
    QString column;
    bool required;
    int maxLength;
};

const DetailsFieldInfo& detailsFieldInfo(int field);

// The window's field table: one box per field, "txtbox_N", Enter checking the box and moving
// to the next one, from the last one to Save.
QList<FieldSpec> detailsFieldTable();

using DetailsProblem = FieldProblem;

namespace DetailsRules {

// The checks run before the details are stored, in the order the user hears about them.
// The postcode is capitalised in `details` first. Normally at most one problem comes back;
// the postcode's character test runs even after an earlier failure, so there may be two.
QList<DetailsProblem> validateForSave(OrganisationDetails& details);

// The check for Enter pressed in one box. `text` is the box's text; the postcode is
// capitalised in place. No problem means the box passes and the focus may move on.
std::optional<DetailsProblem> checkOnEnter(int box, QString& text);

} // namespace DetailsRules

// The single row of Sysset on the system database.
class OrganisationDetailsStore {
public:
    explicit OrganisationDetailsStore(QSqlDatabase db);

    // The stored details (fields without a value come back empty), or nothing when none have
    // been saved yet.
    Result<std::optional<OrganisationDetails>> load() const;

    // Stores the details as the one row: added when the table is empty, else the existing row
    // is rewritten (its key included), so there is never a second row. Empty optional fields
    // are stored without a value.
    // With `asRead`, the row is rewritten only as it was read: when someone else saved the
    // details in between (another workstation on a server), nothing is written and
    // `changedElsewhere` is set.
    Status save(const OrganisationDetails& details, const OrganisationDetails* asRead = nullptr,
                bool* changedElsewhere = nullptr) const;
    static inline const QString ChangedElsewhereText =
        QStringLiteral("Someone else has changed the organisation's details since they were shown here. The window "
                       "now shows them as they are stored: make your changes again if they are still needed.");

private:
    QSqlDatabase m_db;
};

} // namespace ordwell
