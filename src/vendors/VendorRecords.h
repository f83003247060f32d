#pragma once

#include "common/Prompter.h"
#include "common/Status.h"

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

// How a detail box behaves when the details are opened for editing.
enum class DetailKind { Required, Optional, NeverEditable };

struct VendorDetailColumn {
    const char* column;  // in the vendor database's `vendor` table
    const char* caption; // the label beside the box
    int maxLength;       // 0: no input limit (the box is never typed in)
    DetailKind kind;
};

// The fifteen detail columns, indexed by VendorField (CustomerId .. OrderForm).
const std::array<VendorDetailColumn, VendorDetailCount>& vendorDetailColumns();

// The identity boxes: captions and input limits.
inline constexpr int CompanyNameMaxLength = 51;
inline constexpr int ShortcodeLength = 3;

// The contents of the fifteen detail boxes.
struct VendorDetails {
    std::array<QString, VendorDetailCount> values;

    QString& operator[](VendorField field) { return values[static_cast<int>(field)]; }
    const QString& operator[](VendorField field) const { return values[static_cast<int>(field)]; }
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

// What pressing Enter in a box leads to: a failure as above, or on success where the focus
// goes next: another box, or the Save button. Neither: the focus stays.
struct EnterCheck {
    VendorCheck check;
    std::optional<VendorField> next;
    bool toSave = false;
};

enum class SaveMode { New, Update };

namespace VendorRecords {

// The connection the window opens on a vendor's database for each read or write, apart from
// the one a chosen vendor holds open.
inline const QString ConnectionName = QStringLiteral("VendorRecordsConnection");

inline const QString FirstOrderNumber = QStringLiteral("1000000");
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
LoadedDetails LoadVendorDetails(const QString& dataDir, const QString& code);

// Writes the details row. New: a fresh row for the vendor with the first order number and the
// shared order form (or the report imported while adding). Update: rewrites the row, the
// next order number and the order form included. Returns the details as stored.
Result<VendorDetails> SaveVendorDetails(const QString& dataDir, const QString& code, const VendorDetails& details,
                                        SaveMode mode);

// The identity checks of a new vendor, stopping at the first failure.
VendorCheck ValidateNewVendor(const QSqlDatabase& systemDb, const QString& companyName, const QString& shortcode);

// The details checks run by Save, stopping at the first failure.
VendorCheck ValidateVendorDetails(const VendorDetails& details);

// The check Enter runs in a company name or detail box. The shortcode box runs the whole of
// ValidateNewVendor instead.
EnterCheck enterKeyCheck(VendorField box, const QString& text);

// Brings a new vendor into existence: its `vendors` row and its own empty database. When the
// database cannot be made the row is taken out again, so nothing is left half-made.
Status CreateVendorEntry(const QSqlDatabase& systemDb, const QString& dataDir, const QString& companyName,
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
