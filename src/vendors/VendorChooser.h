#pragma once

#include "common/Status.h"
#include "vendors/VendorRepository.h"

#include <QDate>
#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>

namespace ordwell {

class AppContext;

// The rules of the vendor chooser, apart from its window: what the list offers, what a chosen
// entry means, and the work done on a vendor's database as it is opened.
namespace VendorChooser {

inline const QString CloseEntryPrefix = QStringLiteral("Close Vendor - ");
inline const QString InfoWhileOpen = QStringLiteral("Please select a vendor to switch to, or close the current vendor");
inline const QString InfoWhileClosed = QStringLiteral("Please select a vendor to use");

// The date an expired price is given when it is zeroed.
inline const QDate ResetExpiryDate = QDate(2020, 3, 11);

// The entries: the close entry first while a vendor is open, then every active vendor other
// than the open one, in the order given.
QStringList listEntries(const QList<VendorEntry>& activeVendors, const QString& openCode, const QString& openName);
QString infoText(bool vendorOpen);

// What a chosen entry means.
struct Choice {
    enum class Kind { Nothing, CloseVendor, OpenVendor };
    Kind kind = Kind::Nothing;
    QString code;
    QString name;
};
Choice parseChoice(const QString& entryText);

// The number of items whose price expired before `today`; a price expiring today still holds.
Result<int> countExpiredPrices(const QSqlDatabase& vendorDb, const QDate& today);
// Zeroes those prices and gives them the reset expiry date, as one statement in one
// transaction; answers how many rows changed.
Result<int> zeroExpiredPrices(const QSqlDatabase& vendorDb, const QDate& today);
QString expiredPricesMessage(int count);

// True when an order was left in the live state.
Result<bool> hasLiveOrder(const QSqlDatabase& vendorDb);

// Opening a vendor the way the chooser does it: the open vendor closed, the chosen one's
// database opened, expired prices reset (telling the user), open orders revalued, and the
// live-order check, all before the session announces the vendor. Answers whether a live order
// was found; a failure has been told to the user already and leaves no vendor open.
Result<bool> openVendor(AppContext& context, const QString& code, const QString& name,
                        const QDate& today = QDate::currentDate());

// The expired-price reset on the open vendor: the message with the count, then the zeroing,
// then the revaluation of open orders (always, even when nothing was reset).
void ResetExpiredPrices(AppContext& context, const QDate& today = QDate::currentDate());

} // namespace VendorChooser
} // namespace ordwell
