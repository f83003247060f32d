#include "VendorChooser.h"

#include "app/AppContext.h"
#include "app/VendorSession.h"
#include "common/Dates.h"
#include "common/Prompter.h"
#include "common/Sql.h"
#include "common/WaitCursor.h"
#include "orders/Revaluation.h"
#include "store/OrderLeases.h"

namespace ordwell::VendorChooser {

QStringList listEntries(const QList<VendorEntry>& activeVendors, const QString& openCode, const QString& openName) {
    QStringList entries;
    if (!openCode.isEmpty())
        entries << CloseEntryPrefix + openName;
    for (const VendorEntry& vendor : activeVendors) {
        if (vendor.code != openCode)
            entries << vendor.listText();
    }
    return entries;
}

QString infoText(bool vendorOpen) {
    return vendorOpen ? InfoWhileOpen : InfoWhileClosed;
}

Choice parseChoice(const QString& entryText) {
    Choice choice;
    if (entryText.isEmpty())
        return choice;
    if (entryText.startsWith(QLatin1String("Close"))) {
        choice.kind = Choice::Kind::CloseVendor;
        return choice;
    }
    // Codes are three characters, so the name starts after "ABC - ".
    choice.kind = Choice::Kind::OpenVendor;
    choice.code = entryText.left(3);
    choice.name = entryText.mid(6);
    return choice;
}

Result<int> countExpiredPrices(const QSqlDatabase& vendorDb, const QDate& today) {
    // Stored dates are ISO text, so comparing the text orders them; the index on priceexp serves.
    auto count = Sql::scalar(vendorDb, QStringLiteral("SELECT COUNT(*) FROM items WHERE priceexp < ?"),
                             {Dates::toStored(today)});
    if (!count)
        return count.status();
    return count->toInt();
}

Result<int> zeroExpiredPrices(const QSqlDatabase& vendorDb, const QDate& today) {
    Sql::Transaction transaction(vendorDb);
    auto query = Sql::exec(vendorDb, QStringLiteral("UPDATE items SET price = 0, priceexp = ? WHERE priceexp < ?"),
                           {Dates::toStored(ResetExpiryDate), Dates::toStored(today)});
    if (!query)
        return query.status();
    const int changed = query->numRowsAffected();
    query.value().finish();
    if (const Status committed = transaction.commit(); !committed)
        return committed;
    return changed;
}

QString expiredPricesMessage(int count) {
    return QStringLiteral("There are %1 items with expired prices, the item prices will be set to 0.00").arg(count);
}

Result<bool> hasLiveOrder(const QSqlDatabase& vendorDb) {
    // A live order another workstation is working on is not this one's to recover.
    auto found =
        Sql::scalar(vendorDb,
                    QStringLiteral("SELECT 1 FROM orderhead h WHERE h.status = 'L'") +
                        OrderLeases::notLeasedElsewhere(vendorDb, QStringLiteral("h")) + QStringLiteral(" LIMIT 1"),
                    OrderLeases::notLeasedElsewhereValues(vendorDb));
    if (!found)
        return found.status();
    return found->isValid();
}

void ResetExpiredPrices(AppContext& context, const QDate& today) {
    const QSqlDatabase db = context.vendorDb();
    const auto expired = countExpiredPrices(db, today);
    if (!expired) {
        context.prompter().message(
            QStringLiteral("The expired prices could not be checked.\n%1").arg(expired.message()), QString(),
            MessageIcon::Critical);
    } else if (*expired > 0) {
        context.prompter().message(expiredPricesMessage(*expired), QStringLiteral("Incorrect Item Prices"),
                                   MessageIcon::Information);
        WaitCursor busy;
        const auto zeroed = zeroExpiredPrices(db, today);
        if (!zeroed)
            context.prompter().message(
                QStringLiteral("The expired prices could not be set to 0.00; they are as they were.\n%1")
                    .arg(zeroed.message()),
                QString(), MessageIcon::Critical);
    }
    // Open orders follow the catalogue whether or not a price changed here.
    RefreshOrderValues(db, context.prompter());
}

Result<bool> openVendor(AppContext& context, const QString& code, const QString& name, const QDate& today) {
    bool liveOrderFound = false;
    Status liveCheck;
    const Status opened = context.vendorSession().open(code, name, [&] {
        ResetExpiredPrices(context, today);
        const auto live = hasLiveOrder(context.vendorDb());
        if (live)
            liveOrderFound = *live;
        else
            liveCheck = live.status();
    });
    if (!opened) {
        context.prompter().message(
            QStringLiteral("The vendor's database could not be opened, so no vendor is open.\n%1")
                .arg(opened.message()),
            QString(), MessageIcon::Critical);
        return opened;
    }
    if (!liveCheck)
        context.prompter().message(
            QStringLiteral("The vendor's orders could not be checked for a live order.\n%1").arg(liveCheck.message()),
            QString(), MessageIcon::Critical);
    return liveOrderFound;
}

} // namespace ordwell::VendorChooser
