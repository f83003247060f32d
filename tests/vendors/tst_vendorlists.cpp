// The two windows that offer the active vendors in a list: the chooser (File > Switch Vendor) and
// deactivation (Vendors > Deactivate Vendor).
#include "app/MenuMasks.h"
#include "app/VendorSession.h"
#include "common/Dates.h"
#include "common/Sql.h"
#include "shell/MainWindow.h"
#include "store/Store.h"
#include "support/TestSupport.h"
#include "vendors/DeactivateVendorForm.h"
#include "vendors/VendorChooserForm.h"
#include "vendors/VendorRepository.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace ordwell;

namespace {

const QString Acme = QStringLiteral("ABC - Acme Ltd");
const QString Xyz = QStringLiteral("XYZ - Xylo & Zeal's");
const QString NoVendor = QStringLiteral("No Vendor Selected");
const QString NoneLeft = QStringLiteral("There are no active vendors to deactivate");

// The enable state of the 18 masked menu entries, as a mask text.
QString menuState(MainWindow& window) {
    QString state;
    for (QAction* entry : window.maskedEntries())
        state += entry->isEnabled() ? QLatin1Char('1') : QLatin1Char('0');
    return state;
}

// The main window over the vendors ABC and XYZ (and a deactivated OLD), each with its own file.
class Desk {
public:
    explicit Desk(bool withVendors = true) {
        test::storeOrganisationDetails(ctx());
        if (withVendors) {
            addVendor(QStringLiteral("Acme Ltd"), QStringLiteral("ABC"));
            addVendor(QStringLiteral("Xylo & Zeal's"), QStringLiteral("XYZ"));
            addVendor(QStringLiteral("Old Supplies"), QStringLiteral("OLD"));
            VendorRepository::deactivateVendor(ctx().systemDb(), QStringLiteral("OLD"));
        }
        window = test::openMainWindow(ctx());
    }
    void addVendor(const QString& name, const QString& code) {
        QVERIFY(VendorRepository::addVendor(ctx().systemDb(), name, code));
        QVERIFY(Store::CreateVendorDatabase(ctx().dataDir(), code));
    }
    // Writes into a vendor's file while it is not open, as an earlier session would have.
    void inVendorFile(const QString& code, const QString& sql) {
        const QString name = QStringLiteral("setup");
        {
            auto db = Store::OpenVendorDatabase(ctx().dataDir(), Store::vendorFileName(code), name);
            QVERIFY(db);
            QVERIFY2(Sql::run(*db, sql), qPrintable(sql));
        }
        QSqlDatabase::removeDatabase(name);
    }

    AppContext& ctx() { return tc.context(); }
    test::ScriptedPrompter& prompter() { return tc.prompter(); }
    QString panel() { return window->findChild<QLabel*>(QStringLiteral("sbPanel_1"))->text(); }
    QString menus() { return menuState(*window); }

    // Through the keyboard, as File > Switch Vendor's shortcut.
    QWidget* openChooser() {
        QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier);
        return form = window->findChild<VendorChooserForm*>(QStringLiteral("frmswvend"));
    }
    QWidget* openDeactivation() {
        window->triggerMenu(QStringLiteral("mnudevend"));
        return form = window->findChild<DeactivateVendorForm*>(QStringLiteral("frmdeactvend"));
    }
    QComboBox* list() { return test::child<QComboBox>(form, QStringLiteral("cmbvendors")); }
    QString info() { return test::child<QLabel>(form, QStringLiteral("lblinfo"))->text(); }
    QPushButton* button(int i) { return test::child<QPushButton>(form, QStringLiteral("cmdbutton_%1").arg(i)); }
    QStringList entries() {
        QStringList out;
        for (int i = 0; i < list()->count(); ++i)
            out << list()->itemText(i);
        return out;
    }
    // Opens the chooser unless it is open, picks `entry` (nothing when empty) and presses the button.
    void choose(const QString& entry, int buttonIndex = VendorChooserForm::Select) {
        QVERIFY(form || openChooser());
        QTRY_VERIFY(list()->count() > 0);
        list()->setCurrentIndex(entry.isEmpty() ? -1 : list()->findText(entry));
        QCOMPARE(list()->currentText(), entry);
        QTest::mouseClick(button(buttonIndex), Qt::LeftButton);
        QTRY_VERIFY(form.isNull());
        QCOMPARE(ctx().OpenWindowCount, 0);
    }

    // Deactivation: every vendor's status letter, in code order (a deactivated vendor keeps its
    // row); the confirmation box; choosing an entry, typing the confirmation and pressing
    // De-activate.
    QString statuses() {
        return Sql::scalar(
                   ctx().systemDb(),
                   QStringLiteral("SELECT group_concat(status, '') FROM (SELECT status FROM vendors ORDER BY code)"))
            ->toString();
    }
    QLineEdit* confirmation() { return test::child<QLineEdit>(form, QStringLiteral("txtdeactvend")); }
    void request(const QString& entry, const QString& typed) {
        prompter().clear();
        list()->setCurrentIndex(list()->findText(entry));
        confirmation()->clear();
        QTest::keyClicks(confirmation(), typed);
        QTest::mouseClick(button(0), Qt::LeftButton);
    }
    // The window is gone and the main menu is back as it is with no vendor open.
    void expectClosed() {
        QTRY_VERIFY(form.isNull());
        QCOMPARE(ctx().OpenWindowCount, 0);
        QVERIFY(window->mdiArea()->subWindowList().isEmpty());
        QCOMPARE(menus(), MenuMasks::NoVendor.left(18));
    }

    test::TestContext tc;
    std::unique_ptr<MainWindow> window;
    QPointer<QWidget> form;
};

} // namespace

class TestVendorLists : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void opensSwitchesAndClosesVendors() {
        Desk d;
        QSignalSpy opened(&d.ctx().vendorSession(), &VendorSession::vendorOpened);
        QSignalSpy closed(&d.ctx().vendorSession(), &VendorSession::vendorClosed);
        QVERIFY(d.openChooser());
        QTRY_COMPARE(d.entries(), (QStringList{Acme, Xyz}));
        QCOMPARE(d.list()->currentText(), QString());
        QCOMPARE(d.info(), QStringLiteral("Please select a vendor to use"));
        QCOMPARE(d.menus(), MenuMasks::SystemWindow.left(18));

        d.choose(Acme);
        QCOMPARE(d.ctx().CurrentVendorCode, QStringLiteral("ABC"));
        QCOMPARE(d.ctx().CurrentVendorName, QStringLiteral("Acme Ltd"));
        QCOMPARE(QFileInfo(d.ctx().vendorDb().databaseName()).fileName(), QStringLiteral("ABCvendor.mdb"));
        QCOMPARE(d.panel(), QStringLiteral("Acme Ltd"));
        QCOMPARE(d.menus(), MenuMasks::VendorOpen.left(18));

        // With ABC open, the close entry comes first and ABC itself is not offered.
        QVERIFY(d.openChooser());
        QTRY_COMPARE(d.entries(), (QStringList{"Close Vendor - Acme Ltd", Xyz}));
        QCOMPARE(d.info(), QStringLiteral("Please select a vendor to switch to, or close the current vendor"));
        QCOMPARE(d.list()->currentText(), QString());

        // A name with an apostrophe and an ampersand survives the round trip through the list,
        // chosen here with the arrow keys and Enter.
        d.list()->setFocus();
        QTest::keyClick(d.list(), Qt::Key_Down);
        QTest::keyClick(d.list(), Qt::Key_Down);
        QTest::keyClick(d.list(), Qt::Key_Return);
        QTRY_VERIFY(d.form.isNull());
        QCOMPARE(d.ctx().vendorSession().code(), QStringLiteral("XYZ"));
        QCOMPARE(d.panel(), QStringLiteral("Xylo & Zeal's"));
        QCOMPARE(QFileInfo(d.ctx().vendorDb().databaseName()).fileName(), QStringLiteral("XYZvendor.mdb"));

        d.choose(QStringLiteral("Close Vendor - Xylo & Zeal's"));
        QVERIFY(!d.ctx().vendorSession().isOpen());
        QVERIFY(d.ctx().CurrentVendorCode.isEmpty() && d.ctx().CurrentVendorName.isEmpty());
        QVERIFY(!d.ctx().hasVendorDb());
        QCOMPARE(d.panel(), NoVendor);
        QCOMPARE(d.menus(), MenuMasks::NoVendor.left(18));
        QCOMPARE(opened.size(), 2);
        QCOMPARE(closed.size(), 2);
        QVERIFY(d.prompter().messages.isEmpty());
    }

    void emptyChoiceAndExitChangeNothing_data() {
        QTest::addColumn<bool>("vendorOpen");
        QTest::addColumn<int>("button");
        QTest::newRow("select nothing, none open") << false << int(VendorChooserForm::Select);
        QTest::newRow("select nothing, ABC open") << true << int(VendorChooserForm::Select);
        QTest::newRow("exit, ABC open") << true << int(VendorChooserForm::Exit);
    }
    void emptyChoiceAndExitChangeNothing() {
        QFETCH(bool, vendorOpen);
        QFETCH(int, button);
        Desk d;
        if (vendorOpen)
            d.choose(Acme);
        QSignalSpy closed(&d.ctx().vendorSession(), &VendorSession::vendorClosed);
        // Exit with a vendor chosen still opens nothing.
        d.choose(button == VendorChooserForm::Exit ? Xyz : QString(), button);
        QCOMPARE(closed.size(), 0);
        QCOMPARE(d.ctx().vendorSession().code(), vendorOpen ? QStringLiteral("ABC") : QString());
        QCOMPARE(d.panel(), vendorOpen ? QStringLiteral("Acme Ltd") : NoVendor);
        QCOMPARE(d.menus(), (vendorOpen ? MenuMasks::VendorOpen : MenuMasks::NoVendor).left(18));
        QVERIFY(d.prompter().messages.isEmpty());
    }

    // With no active vendor either window says so and does not stay; with the only one open, just
    // the chooser's close entry is left.
    void noActiveVendorOrJustTheOpenOne() {
        Desk d(false);
        QVERIFY(d.openChooser());
        QTRY_VERIFY(d.form.isNull());
        QVERIFY(d.openDeactivation());
        d.expectClosed();
        QCOMPARE(d.prompter().texts(), (QStringList{"There are no active vendors to select", NoneLeft}));
        for (const test::ShownMessage& shown : d.prompter().messages) {
            QCOMPARE(shown.title, QStringLiteral("No Active Vendors"));
            QCOMPARE(shown.icon, MessageIcon::Exclamation);
        }

        d.prompter().clear();
        d.addVendor(QStringLiteral("Acme Ltd"), QStringLiteral("ABC"));
        d.choose(Acme);
        QVERIFY(d.openChooser());
        QTRY_COMPARE(d.entries(), QStringList{"Close Vendor - Acme Ltd"});
        QVERIFY(d.prompter().messages.isEmpty());
        // The close box acts as Exit.
        d.form->parentWidget()->close();
        QTRY_VERIFY(d.form.isNull());
        QCOMPARE(d.ctx().vendorSession().code(), QStringLiteral("ABC"));
        QCOMPARE(d.menus(), MenuMasks::VendorOpen.left(18));
    }

    // Prices dated before today (yesterday, last week) are set to nothing; today's is kept.
    void openingResetsExpiredPricesAndTellsTheCount() {
        Desk d;
        const QDate today = QDate::currentDate();
        d.inVendorFile(
            QStringLiteral("ABC"),
            QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp) VALUES ('A1', 'Apple', "
                           "1, 1, 12500, '%1'), "
                           "('A2', 'Apricot', 1, 1, 300, '%2'), ('A3', 'Avocado', 1, 1, 4400, '%3')")
                .arg(Dates::toStored(today.addDays(-1)), Dates::toStored(today.addDays(-7)), Dates::toStored(today)));
        // An entered order of the expired apple and a printed one: only the entered one follows.
        d.inVendorFile(QStringLiteral("ABC"),
                       QStringLiteral("INSERT INTO orderhead (orderid, orderdate, status, totalval) VALUES "
                                      "('ABC1000001', '2026-01-01', 'E', 25000), ('ABC1000002', '2026-01-01', 'P', "
                                      "25000)"));
        d.inVendorFile(QStringLiteral("ABC"),
                       QStringLiteral("INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, "
                                      "lineval, recvqty) VALUES ('ABC1000001', 1, 'A1', '2026-01-01', 'E', 2, 12500, "
                                      "25000, 0), ('ABC1000002', 1, 'A1', '2026-01-01', 'P', 2, 12500, 25000, 0)"));
        d.choose(Acme);
        QCOMPARE(d.prompter().texts(),
                 (QStringList{"There are 2 items with expired prices, the item prices will be set to 0.00",
                              "1 order value has been updated"}));
        QCOMPARE(
            Sql::scalar(d.ctx().vendorDb(), QStringLiteral("SELECT group_concat(totalval) FROM orderhead"))->toString(),
            QStringLiteral("0,25000"));
        QCOMPARE(d.prompter().messages.first().title, QStringLiteral("Incorrect Item Prices"));
        QCOMPARE(d.prompter().messages.first().icon, MessageIcon::Information);
        const auto rows = Sql::scalar(
            d.ctx().vendorDb(), QStringLiteral("SELECT group_concat(code || ':' || price || ':' || priceexp, ' ') "
                                               "FROM (SELECT * FROM items ORDER BY code)"));
        QCOMPARE(rows->toString(),
                 QStringLiteral("A1:0:2020-03-11 A2:0:2020-03-11 A3:4400:%1").arg(Dates::toStored(today)));
        QCOMPARE(d.panel(), QStringLiteral("Acme Ltd"));
    }

    void liveOrderIsHandedToTheOrderFormAfterTheVendorOpenMask() {
        Desk d;
        d.inVendorFile(QStringLiteral("ABC"),
                       QStringLiteral("INSERT INTO orderhead (orderid, orderdate, status, totalval) VALUES "
                                      "('ABC1000001', '2026-01-01', 'E', 0), ('ABC1000002', '2026-01-02', 'L', 0)"));
        QStringList calls;
        d.ctx().setOrderFormOpener([&](const QString& mode) {
            // What the user sees as the order form is asked for.
            calls << mode << d.menus() << d.panel() << d.prompter().texts().join(QLatin1Char('|'))
                  << QString::number(d.ctx().OpenWindowCount);
        });
        d.choose(Acme);
        QCOMPARE(
            calls,
            (QStringList{"LIVEORDER", MenuMasks::VendorOpen.left(18), "Acme Ltd",
                         "An order has been found in the Live state, the system will now recover this order!", "0"}));
        QCOMPARE(d.prompter().messages.last().title, QStringLiteral("System Recovery"));
        QCOMPARE(d.prompter().messages.last().icon, MessageIcon::Critical);

        // Without a live order there is nothing to recover.
        d.inVendorFile(QStringLiteral("XYZ"),
                       QStringLiteral("INSERT INTO orderhead (orderid, orderdate, status, totalval) VALUES "
                                      "('XYZ1000001', '2026-01-01', 'P', 0)"));
        calls.clear();
        d.prompter().clear();
        d.choose(Xyz);
        QVERIFY(calls.isEmpty());
        QVERIFY(d.prompter().messages.isEmpty());
    }

    void aVendorWhoseFileIsMissingIsNotOpened() {
        Desk d;
        QVERIFY(QFile::remove(Store::vendorDatabasePath(d.ctx().dataDir(), QStringLiteral("XYZ"))));
        d.choose(Acme);
        d.choose(Xyz);
        QCOMPARE(d.prompter().messages.size(), 1);
        QCOMPARE(d.prompter().messages.first().icon, MessageIcon::Critical);
        QVERIFY(!d.ctx().vendorSession().isOpen());
        QVERIFY(d.ctx().CurrentVendorCode.isEmpty());
        QCOMPARE(d.panel(), NoVendor);
        QCOMPARE(d.menus(), MenuMasks::NoVendor.left(18));
    }

    void deactivationRefusesAnythingButTheExactWord() {
        Desk d;
        QVERIFY(d.openDeactivation());
        QCOMPARE(test::child<QLabel>(d.form, "lblinstr")->text(), "Type in KILLVENDOR to deactivate the vendor");
        QVERIFY(!d.list()->isEditable());
        QCOMPARE(d.entries(), (QStringList{Acme, Xyz}));
        QCOMPARE(d.list()->currentText(), QString());
        // While it is open only About may be used.
        QCOMPARE(d.ctx().OpenWindowCount, 1);
        QCOMPARE(d.menus(), MenuMasks::SystemWindow.left(18));

        // No vendor chosen is told first; then anything but the exact word, which is wiped.
        QString entry;
        for (const char* typed : {"KILLVENDOR", "killvendor", " KILLVENDOR", "KILLVENDOR ", "KILL VENDOR"}) {
            d.request(entry, QString::fromLatin1(typed));
            QCOMPARE(d.prompter().texts(),
                     QStringList{entry.isEmpty() ? "Please select a vendor to deactivate"
                                                 : "To deactivate this vendor please type in 'KILLVENDOR'"});
            QCOMPARE(d.prompter().messages.last().title, QStringLiteral("Deactivation Error"));
            QCOMPARE(d.prompter().messages.last().icon, MessageIcon::Exclamation);
            QCOMPARE(d.confirmation()->text(), QString());
            entry = Xyz;
        }
        QTRY_COMPARE(QApplication::focusWidget(), d.confirmation());
        QCOMPARE(d.statuses(), QStringLiteral("ADA"));
    }

    void deactivatesUntilNoneRemainThenCloses() {
        Desk d;
        const QString xyzFile = Store::vendorDatabasePath(d.ctx().dataDir(), QStringLiteral("XYZ"));
        const QByteArray xyzBefore = test::fileContents(xyzFile);
        QVERIFY(!xyzBefore.isEmpty());
        QVERIFY(d.openDeactivation());

        d.request(Xyz, QStringLiteral("KILLVENDOR"));
        QVERIFY(d.prompter().messages.isEmpty());
        QCOMPARE(d.statuses(), QStringLiteral("ADD"));
        QCOMPARE(d.entries(), QStringList{Acme});
        QCOMPARE(d.list()->currentIndex(), -1);
        QCOMPARE(d.confirmation()->text(), QString());
        // Kept, not deleted: the vendor's own file stays as it was.
        QCOMPARE(test::fileContents(xyzFile), xyzBefore);

        d.request(Acme, QStringLiteral("KILLVENDOR"));
        QCOMPARE(d.prompter().texts(), QStringList{NoneLeft});
        QCOMPARE(d.prompter().messages.last().title, QStringLiteral("No Active Vendors"));
        QCOMPARE(d.prompter().messages.last().icon, MessageIcon::Exclamation);
        d.expectClosed();
        QCOMPARE(d.statuses(), QStringLiteral("DDD"));
    }

    void deactivationListIsReadAgainWhenTheWindowBecomesActiveAndCloseBoxExits() {
        Desk d;
        QVERIFY(d.openDeactivation());
        QMdiArea* area = d.window->mdiArea();
        QMdiSubWindow* frame = area->activeSubWindow();
        QCOMPARE(frame, d.form->parentWidget());
        d.list()->setCurrentIndex(0);

        QVERIFY(VendorRepository::addVendor(d.ctx().systemDb(), QStringLiteral("Newco"), QStringLiteral("NEW")));
        QMdiSubWindow* other = area->addSubWindow(new QLabel(QStringLiteral("another window")));
        other->show();
        area->setActiveSubWindow(other);
        QCOMPARE(d.list()->count(), 2);
        area->setActiveSubWindow(frame);
        QCOMPARE(d.entries(), (QStringList{Acme, "NEW - Newco", Xyz}));
        QCOMPARE(d.list()->currentIndex(), -1);
        delete other;

        frame->close();
        d.expectClosed();
        QCOMPARE(d.statuses(), QStringLiteral("AADA"));
        QVERIFY(d.prompter().messages.isEmpty());
    }
};

QTEST_MAIN(TestVendorLists)
#include "tst_vendorlists.moc"
