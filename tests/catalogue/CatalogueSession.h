#pragma once

#include "app/MenuMasks.h"
#include "app/VendorSession.h"
#include "common/Sql.h"
#include "shell/MainWindow.h"
#include "store/Store.h"
#include "support/TestSupport.h"
#include "vendors/VendorRepository.h"

#include <QAction>

namespace ordwell::test {

// The main window with the vendor "TST" open, as the catalogue windows find it.
class CatalogueSession {
public:
    CatalogueSession() {
        storeOrganisationDetails(ctx());
        if (!VendorRepository::addVendor(ctx().systemDb(), QStringLiteral("Test Supplies"), QStringLiteral("TST")) ||
            !Store::CreateVendorDatabase(ctx().store(), QStringLiteral("TST")))
            qFatal("cannot add the vendor");
        window = openMainWindow(ctx());
        if (!ctx().vendorSession().open(QStringLiteral("TST"), QStringLiteral("Test Supplies")))
            qFatal("cannot open the vendor");
    }
    ~CatalogueSession() { window.reset(); }

    AppContext& ctx() { return m_tc.context(); }
    ScriptedPrompter& prompter() { return m_tc.prompter(); }
    QSqlDatabase db() { return ctx().vendorDb(); }
    bool enabled(const QString& entry) const { return window->menuEntry(entry)->isEnabled(); }
    // The masked menu entries' states as a mask text, to compare with the masks' first 18.
    QString menus() const {
        QString state;
        for (const QAction* entry : window->maskedEntries())
            state += entry->isEnabled() ? QLatin1Char('1') : QLatin1Char('0');
        return state;
    }
    // An item at 12.50 in packs of 6, ordered 2 at a time, its price good until mid-2030.
    void addItem(const QString& code, const QString& descr) {
        if (!Sql::run(db(),
                      QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                                     "VALUES (?, ?, 6, 2, 125000, '2030-06-30')"),
                      {code, descr}))
            qFatal("cannot add an item");
    }
    int count(const QString& table) {
        return Sql::scalar(db(), QStringLiteral("SELECT count(*) FROM ") + table)->toInt();
    }

    std::unique_ptr<MainWindow> window;

private:
    TestContext m_tc;
};

} // namespace ordwell::test
