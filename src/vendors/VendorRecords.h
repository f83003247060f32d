#pragma once

#include "store/Store.h"

#include "common/Prompter.h"
#include "common/RecordFields.h"
#include "common/Status.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <array>
#include <optional>

namespace ordwell {

// Every box of the vendor records window: the fifteen detail boxes first, in the order of
// their columns in the vendor's `vendor` table, then the two identity boxes.
enum class VendorField {
    CustomerId,
    Address1,
    Address2,
    Address3,
    County,
    Postcode,
    RepName,
    RepPhone,
    RepEmail,
    ContactName,
    ContactPhone,
    ContactFax,
    ContactEmail,
    NextOrder,
    OrderForm,
    CompanyName,
    Shortcode,
};

inline constexpr int VendorDetailCount = 15;
// The thirteen details the user types in, CustomerId .. ContactEmail.
inline constexpr int TypedDetailCount = static_cast<int>(VendorField::NextOrder);
inline constexpr int VendorFieldCount = static_cast<int>(VendorField::Shortcode) + 1;

// A vendor's code is three letters or digits (its column holds one more).
inline constexpr int ShortcodeLength = 3;

// The vendor's details row, typed: the texts the user types, the next order number and the
// order form report.
struct VendorDetails {
    std::array<QString, TypedDetailCount> values;
    std::optional<int> nextOrder;
    QString orderForm;

    // Only the typed-in texts (CustomerId .. ContactEmail).
    QString& operator[](VendorField field) { return values.at(static_cast<std::size_t>(field)); }
    const QString& operator[](VendorField field) const { return values.at(static_cast<std::size_t>(field)); }
    bool isEmpty() const;
};

// A message for the user and where the keyboard focus goes with it.
struct VendorMessage {
    QString text;
    QString title;
    MessageIcon icon = MessageIcon::Exclamation;
};

// The outcome of a check: on failure the message and the box to put right; either way the
// text to write back into a box that the check upper-cased, so the user sees what is kept.
struct VendorCheck {
    std::optional<VendorMessage> failure;
    VendorField focus = VendorField::CompanyName;
    std::optional<VendorField> rewriteField;
    QString rewriteText;

    bool passed() const { return !failure.has_value(); }
};

enum class SaveMode { New, Update };

namespace VendorRecords {

// The connection the window opens on a vendor's database for each read or write, apart from
// the one a chosen vendor holds open.
inline const QString ConnectionName = QStringLiteral("VendorRecordsConnection");

inline constexpr int FirstOrderNumber = 1000000;
inline const QString EditingPositionText = QStringLiteral("Adding/Editing Record");

// "Record 2 of 4", or the empty-list text when there are no active vendors.
QString positionText(int position, int count);

// Which of the nine buttons (Edit .. Exit) may be used while browsing, from the 1-based
// position in the list of active vendors and its length.
QString navigationMask(int position, int count);

inline const QString EditingMask = QStringLiteral("011000000");
inline const QString DetailsStageMask = QStringLiteral("010000000");

// The vendor's details row. A database without exactly one row gives empty details; a file
// that is missing or cannot be read gives empty details and a message saying so.
struct LoadedDetails {
    VendorDetails details;
    QString problem;
};
LoadedDetails LoadVendorDetails(const Store::StoreLocation& where, const QString& code);

// Writes the details row. New: a fresh row for the vendor with the first order number and the
// shared order form (or the report imported while adding). Update: rewrites the typed details
// and the order form over the row as `asRead` found it; the next order number is the order
// counter's own and is left as it is. When someone else changed the row in between (another
// workstation on a server), nothing is written and `changedElsewhere` is set. Returns the
// details as stored.
Result<VendorDetails> SaveVendorDetails(const Store::StoreLocation& where, const QString& code,
                                        const VendorDetails& details, SaveMode mode,
                                        const VendorDetails* asRead = nullptr, bool* changedElsewhere = nullptr);
inline const QString ChangedElsewhereText =
    QStringLiteral("Someone else has changed the details of vendor %1 since they were shown here. The window now "
                   "shows them as they are stored: make your changes again if they are still needed.");

// The identity checks of a new vendor, stopping at the first failure.
VendorCheck ValidateNewVendor(const QSqlDatabase& systemDb, const QString& companyName, const QString& shortcode);

// The details checks run by Save, stopping at the first failure.
VendorCheck ValidateVendorDetails(const VendorDetails& details);

// The window's field table, indexed by VendorField: the detail boxes "txtbox_N" with their
// Enter checks and order, then the identity boxes "txtcomp_0/1". Lengths come from the
// database's columns. The shortcode's Enter check needs the company name and the list of
// vendors, so the window supplies it.
QList<FieldSpec> vendorFieldTable();

// Brings a new vendor into existence: its `vendors` row and its own empty database. When the
// database cannot be made the row is taken out again, so nothing is left half-made.
Status CreateVendorEntry(const QSqlDatabase& systemDb, const Store::StoreLocation& where, const QString& companyName,
                         const QString& shortcode);

// data folder + code + "ordform.rpt"
QString vendorReportPath(const QString& dataDir, const QString& code);
// data folder + "ordform.rpt"
QString defaultReportPath(const QString& dataDir);

enum class ImportOutcome { Imported, Declined, Failed };
struct ReportImport {
    ImportOutcome outcome = ImportOutcome::Failed;
    QString path;    // the vendor's report file, when imported
    QString problem; // why not, when failed
};

// Moves the chosen report file to become the vendor's own, asking first when the vendor already
// has one. A file already in the data folder (the shared report or another vendor's) is copied
// instead, so nobody else loses theirs.
ReportImport importReport(const QString& chosenPath, const QString& dataDir, const QString& code, Prompter& prompter);

} // namespace VendorRecords
} // namespace ordwell
