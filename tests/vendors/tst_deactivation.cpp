#include "common/Sql.h"
#include "shell/MainWindow.h"
#include "shell/MenuMasks.h"
#include "shell/MenuWiring.h"
#include "store/Store.h"
#include "support/TestSupport.h"
#include "vendors/DeactivateVendorForm.h"
#include "vendors/VendorRepository.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QCryptographicHash>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace ordwell;
using test::TestContext;

namespace {

const QString ErrorTitle = QStringLiteral("Deactivation Error");
const QString NotConfirmed = QStringLiteral("To deactivate this vendor please type in 'KILLVENDOR'");
const QString NoneChosen = QStringLiteral("Please select a vendor to deactivate");
const QString NoneLeft = QStringLiteral("There are no active vendors to deactivate");

QByteArray fileHash(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
}

QString statusOf(AppContext& ctx, const QString& code) {
    return Sql::scalar(ctx.systemDb(), QStringLiteral("SELECT status FROM vendors WHERE code = ?"), {code})
        .value()
        .toString();
}

// The main window with its menus wired, the organisation's details present and some vendors,
// each with its own database file.
class Session {
public:
    explicit Session(const QList<QPair<QString, QString>>& vendors) {
        AppContext& ctx = m_tc.context();
        Sql::run(ctx.systemDb(),
                 QStringLiteral("INSERT INTO Sysset (location, add1, county, postcode, contact, telephone, email) "
                                "VALUES (?,?,?,?,?,?,?)"),
                 {QStringLiteral("Head Office"), QStringLiteral("1 High St"), QStringLiteral("Kent"),
                  QStringLiteral("CT1 1AA"), QStringLiteral("Ann"), QStringLiteral("01234 567890"),
                  QStringLiteral("ann@example.org")});
        for (const auto& [code, name] : vendors) {
            VendorRepository::addVendor(ctx.systemDb(), name, code);
            Store::CreateVendorDatabase(ctx.dataDir(), code);
        }
        m_window = std::make_unique<MainWindow>(ctx);
        wireMenus(*m_window, ctx);
        m_ready = std::make_unique<QSignalSpy>(m_window.get(), &MainWindow::firstActivated);
        m_window->resize(900, 600);
        m_window->show();
        m_window->activateWindow();
    }

    AppContext& ctx() { return m_tc.context(); }
    test::ScriptedPrompter& prompter() { return m_tc.prompter(); }
    MainWindow& window() { return *m_window; }
    bool enabled(const char* entry) { return m_window->menuEntry(QString::fromLatin1(entry))->isEnabled(); }

    // Opens the window from the menu, as the user does.
    DeactivateVendorForm* open() {
        // The main window sets its menus once it has first become active; open after that.
        if (!m_ready->count() && !m_ready->wait(5000))
            qWarning("the main window never became active");
        m_window->triggerMenu(QStringLiteral("mnudevend"));
        return m_window->findChild<DeactivateVendorForm*>(QStringLiteral("frmdeactvend"));
    }

private:
    TestContext m_tc;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<QSignalSpy> m_ready;
};

QComboBox* vendorList(QWidget* form) {
    return test::child<QComboBox>(form, QStringLiteral("cmbvendors"));
}
QLineEdit* confirmation(QWidget* form) {
    return test::child<QLineEdit>(form, QStringLiteral("txtdeactvend"));
}
QPushButton* button(QWidget* form, int index) {
    return test::child<QPushButton>(form, QStringLiteral("cmdbutton_%1").arg(index));
}

QStringList entries(QComboBox* list) {
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out << list->itemText(i);
    return out;
}

// Chooses an entry and types the confirmation the way a user does, then presses De-activate.
void request(QWidget* form, const QString& entry, const QString& typed) {
    QComboBox* list = vendorList(form);
    list->setCurrentIndex(list->findText(entry));
    confirmation(form)->clear();
    QTest::keyClicks(confirmation(form), typed);
    QTest::mouseClick(button(form, 0), Qt::LeftButton);
}

} // namespace

class TestDeactivation : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void refusesAnythingButTheExactWord() {
        Session s({{QStringLiteral("OBS"), QStringLiteral("O'Brien's Supplies")},
                   {QStringLiteral("ABC"), QStringLiteral("Acme Ltd")}});
        DeactivateVendorForm* form = s.open();
        QVERIFY(form);
        QCOMPARE(form->windowTitle(), QStringLiteral("Select a Vendor to Deactivate"));
        QCOMPARE(test::child<QLabel>(form, QStringLiteral("lblinfo"))->text(), NoneChosen);
        QCOMPARE(test::child<QLabel>(form, QStringLiteral("lblinstr"))->text(),
                 QStringLiteral("Type in KILLVENDOR to deactivate the vendor"));
        QCOMPARE(button(form, 0)->text(), QStringLiteral("De-activate"));
        QCOMPARE(button(form, 1)->text(), QStringLiteral("&Exit"));
        QComboBox* list = vendorList(form);
        QVERIFY(!list->isEditable());
        QCOMPARE(entries(list),
                 (QStringList{QStringLiteral("ABC - Acme Ltd"), QStringLiteral("OBS - O'Brien's Supplies")}));
        QCOMPARE(list->currentIndex(), -1);
        QCOMPARE(list->currentText(), QString());
        // While it is open only About may be used.
        QCOMPARE(s.ctx().OpenWindowCount, 1);
        QVERIFY(s.enabled("mnuabout"));
        QVERIFY(!s.enabled("mnuswven"));
        QVERIFY(!s.enabled("mnudevend"));

        request(form, QString(), QStringLiteral("KILLVENDOR"));
        QCOMPARE(s.prompter().texts(), QStringList{NoneChosen});
        QCOMPARE(s.prompter().messages.last().title, ErrorTitle);
        QCOMPARE(s.prompter().messages.last().icon, MessageIcon::Exclamation);
        QCOMPARE(confirmation(form)->text(), QString());

        const QStringList wrongWords = {QStringLiteral("killvendor"), QStringLiteral(" KILLVENDOR"),
                                        QStringLiteral("KILLVENDOR "), QStringLiteral("KILL VENDOR")};
        for (const QString& typed : wrongWords) {
            s.prompter().clear();
            request(form, QStringLiteral("OBS - O'Brien's Supplies"), typed);
            QCOMPARE(s.prompter().texts(), QStringList{NotConfirmed});
            QCOMPARE(s.prompter().messages.last().title, ErrorTitle);
            QCOMPARE(confirmation(form)->text(), QString());
            QTRY_COMPARE(QApplication::focusWidget(), confirmation(form));
        }
        QCOMPARE(statusOf(s.ctx(), QStringLiteral("OBS")), QStringLiteral("A"));
        QCOMPARE(statusOf(s.ctx(), QStringLiteral("ABC")), QStringLiteral("A"));
        QCOMPARE(list->count(), 2);
    }

    void deactivatesUntilNoneRemainThenCloses() {
        Session s({{QStringLiteral("OBS"), QStringLiteral("O'Brien's Supplies")},
                   {QStringLiteral("ABC"), QStringLiteral("Acme Ltd")}});
        const QString obsFile = Store::vendorDatabasePath(s.ctx().dataDir(), QStringLiteral("OBS"));
        const QByteArray obsBefore = fileHash(obsFile);
        QVERIFY(!obsBefore.isEmpty());
        QPointer<DeactivateVendorForm> form = s.open();
        QVERIFY(form);

        request(form, QStringLiteral("OBS - O'Brien's Supplies"), QStringLiteral("KILLVENDOR"));
        QCOMPARE(s.prompter().texts(), QStringList());
        QCOMPARE(statusOf(s.ctx(), QStringLiteral("OBS")), QStringLiteral("D"));
        QCOMPARE(statusOf(s.ctx(), QStringLiteral("ABC")), QStringLiteral("A"));
        QCOMPARE(entries(vendorList(form)), QStringList{QStringLiteral("ABC - Acme Ltd")});
        QCOMPARE(vendorList(form)->currentIndex(), -1);
        QCOMPARE(confirmation(form)->text(), QString());
        // Kept, not deleted: the row and the vendor's own file stay as they were.
        QCOMPARE(Sql::scalar(s.ctx().systemDb(), QStringLiteral("SELECT count(*) FROM vendors")).value().toInt(), 2);
        QCOMPARE(fileHash(obsFile), obsBefore);

        request(form, QStringLiteral("ABC - Acme Ltd"), QStringLiteral("KILLVENDOR"));
        QCOMPARE(s.prompter().texts(), QStringList{NoneLeft});
        QCOMPARE(s.prompter().messages.last().title, QStringLiteral("No Active Vendors"));
        QCOMPARE(s.prompter().messages.last().icon, MessageIcon::Exclamation);
        QTRY_VERIFY(form.isNull());
        QCOMPARE(s.ctx().OpenWindowCount, 0);
        QVERIFY(s.window().mdiArea()->subWindowList().isEmpty());
        QVERIFY(s.enabled("mnuswven"));
        QVERIFY(s.enabled("mnudevend"));
        QVERIFY(!s.enabled("mnuNewOrd"));
        QCOMPARE(statusOf(s.ctx(), QStringLiteral("ABC")), QStringLiteral("D"));
        auto active = VendorRepository::activeVendors(s.ctx().systemDb());
        QVERIFY(active);
        QVERIFY(active->isEmpty());
        QCOMPARE(s.prompter().messages.size(), 1);
    }

    void withNoActiveVendorsTheWindowDoesNotStay() {
        Session s({{QStringLiteral("OLD"), QStringLiteral("Old Ltd")}});
        QVERIFY(VendorRepository::deactivateVendor(s.ctx().systemDb(), QStringLiteral("OLD")));
        QPointer<DeactivateVendorForm> form = s.open();
        QCOMPARE(s.prompter().texts(), QStringList{NoneLeft});
        QTRY_VERIFY(form.isNull());
        QCOMPARE(s.ctx().OpenWindowCount, 0);
        QVERIFY(s.enabled("mnuswven"));
        QVERIFY(s.enabled("mnucompsys"));
        // Opening it again asks again, and still nothing stays open.
        form = s.open();
        QTRY_VERIFY(form.isNull());
        QCOMPARE(s.prompter().texts(), (QStringList{NoneLeft, NoneLeft}));
        QCOMPARE(s.ctx().OpenWindowCount, 0);
    }

    void closeBoxLeavesLikeExit() {
        Session s({{QStringLiteral("ABC"), QStringLiteral("Acme Ltd")}});
        QPointer<DeactivateVendorForm> form = s.open();
        QVERIFY(form);
        auto* frame = qobject_cast<QMdiSubWindow*>(form->parentWidget());
        QVERIFY(frame);
        frame->close();
        QTRY_VERIFY(form.isNull());
        QCOMPARE(s.ctx().OpenWindowCount, 0);
        QVERIFY(s.enabled("mnudevend"));
        QCOMPARE(statusOf(s.ctx(), QStringLiteral("ABC")), QStringLiteral("A"));
        QVERIFY(s.prompter().messages.isEmpty());
    }

    void listIsReadAgainWhenTheWindowBecomesActive() {
        Session s({{QStringLiteral("ABC"), QStringLiteral("Acme Ltd")}});
        QPointer<DeactivateVendorForm> form = s.open();
        QVERIFY(form);
        QMdiSubWindow* frame = s.window().mdiArea()->activeSubWindow();
        QCOMPARE(frame, form->parentWidget());
        vendorList(form)->setCurrentIndex(0);

        QVERIFY(VendorRepository::addVendor(s.ctx().systemDb(), QStringLiteral("Newco"), QStringLiteral("NEW")));
        QMdiSubWindow* other = s.window().mdiArea()->addSubWindow(new QLabel(QStringLiteral("another window")));
        other->show();
        s.window().mdiArea()->setActiveSubWindow(other);
        QCOMPARE(vendorList(form)->count(), 1);
        s.window().mdiArea()->setActiveSubWindow(frame);
        QCOMPARE(entries(vendorList(form)),
                 (QStringList{QStringLiteral("ABC - Acme Ltd"), QStringLiteral("NEW - Newco")}));
        QCOMPARE(vendorList(form)->currentIndex(), -1);
        other->close();
        button(form, 1)->click();
        QTRY_VERIFY(form.isNull());
    }
};

QTEST_MAIN(TestDeactivation)
#include "tst_deactivation.moc"
