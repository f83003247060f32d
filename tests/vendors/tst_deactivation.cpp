#include "common/Sql.h"
#include "shell/MainWindow.h"
#include "store/Store.h"
#include "support/TestSupport.h"
#include "vendors/DeactivateVendorForm.h"
#include "vendors/VendorRepository.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QTest>

using namespace ordwell;

namespace {

const QString NoneChosen = QStringLiteral("Please select a vendor to deactivate");
const QString NoneLeft = QStringLiteral("There are no active vendors to deactivate");
const QString Obs = QStringLiteral("OBS - O'Brien's Supplies");

// The main window over two vendors, each with its own database file (some perhaps deactivated
// already), and the deactivation window opened from its menu as the user does.
class Session {
public:
    explicit Session(const QStringList& inactive = {}) {
        test::storeOrganisationDetails(ctx());
        VendorRepository::addVendor(ctx().systemDb(), QStringLiteral("O'Brien's Supplies"), QStringLiteral("OBS"));
        VendorRepository::addVendor(ctx().systemDb(), QStringLiteral("Acme Ltd"), QStringLiteral("ABC"));
        Store::CreateVendorDatabase(ctx().dataDir(), QStringLiteral("OBS"));
        for (const QString& code : inactive)
            VendorRepository::deactivateVendor(ctx().systemDb(), code);
        m_window = test::openMainWindow(ctx());
        m_window->triggerMenu(QStringLiteral("mnudevend"));
        form = m_window->findChild<DeactivateVendorForm*>(QStringLiteral("frmdeactvend"));
    }

    AppContext& ctx() { return m_tc.context(); }
    test::ScriptedPrompter& prompter() { return m_tc.prompter(); }
    bool enabled(const char* entry) { return m_window->menuEntry(QString::fromLatin1(entry))->isEnabled(); }
    // Every vendor's status letter, in code order: a deactivated vendor keeps its row.
    QString statuses() {
        return Sql::scalar(
                   ctx().systemDb(),
                   QStringLiteral("SELECT group_concat(status, '') FROM (SELECT status FROM vendors ORDER BY code)"))
            .value()
            .toString();
    }

    QComboBox* list() { return test::child<QComboBox>(form, QStringLiteral("cmbvendors")); }
    QLineEdit* confirmation() { return test::child<QLineEdit>(form, QStringLiteral("txtdeactvend")); }
    QPushButton* button(int i) { return test::child<QPushButton>(form, QStringLiteral("cmdbutton_%1").arg(i)); }
    QStringList entries() {
        QStringList out;
        for (int i = 0; i < list()->count(); ++i)
            out << list()->itemText(i);
        return out;
    }
    // Chooses an entry, types the confirmation and presses De-activate.
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
        QVERIFY(m_window->mdiArea()->subWindowList().isEmpty());
        QVERIFY(enabled("mnuswven") && enabled("mnudevend") && !enabled("mnuNewOrd"));
    }

    test::TestContext m_tc;
    std::unique_ptr<MainWindow> m_window;
    QPointer<DeactivateVendorForm> form;
};

} // namespace

class TestDeactivation : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void refusesAnythingButTheExactWord() {
        Session s;
        QVERIFY(s.form);
        QCOMPARE(test::child<QLabel>(s.form, "lblinstr")->text(), "Type in KILLVENDOR to deactivate the vendor");
        QVERIFY(!s.list()->isEditable());
        QCOMPARE(s.entries(), (QStringList{"ABC - Acme Ltd", Obs}));
        QCOMPARE(s.list()->currentText(), QString());
        // While it is open only About may be used.
        QCOMPARE(s.ctx().OpenWindowCount, 1);
        QVERIFY(s.enabled("mnuabout") && !s.enabled("mnuswven") && !s.enabled("mnudevend"));

        // No vendor chosen is told first; then anything but the exact word, which is wiped.
        QString entry;
        for (const char* typed : {"KILLVENDOR", "killvendor", " KILLVENDOR", "KILLVENDOR ", "KILL VENDOR"}) {
            s.request(entry, QString::fromLatin1(typed));
            QCOMPARE(
                s.prompter().texts(),
                QStringList{entry.isEmpty() ? NoneChosen : "To deactivate this vendor please type in 'KILLVENDOR'"});
            QCOMPARE(s.prompter().messages.last().title, QStringLiteral("Deactivation Error"));
            QCOMPARE(s.prompter().messages.last().icon, MessageIcon::Exclamation);
            QCOMPARE(s.confirmation()->text(), QString());
            entry = Obs;
        }
        QTRY_COMPARE(QApplication::focusWidget(), s.confirmation());
        QCOMPARE(s.statuses(), QStringLiteral("AA"));
    }

    void deactivatesUntilNoneRemainThenCloses() {
        Session s;
        const QString obsFile = Store::vendorDatabasePath(s.ctx().dataDir(), QStringLiteral("OBS"));
        const QByteArray obsBefore = test::fileContents(obsFile);
        QVERIFY(!obsBefore.isEmpty());

        s.request(Obs, QStringLiteral("KILLVENDOR"));
        QVERIFY(s.prompter().messages.isEmpty());
        QCOMPARE(s.statuses(), QStringLiteral("AD"));
        QCOMPARE(s.entries(), QStringList{"ABC - Acme Ltd"});
        QCOMPARE(s.list()->currentIndex(), -1);
        QCOMPARE(s.confirmation()->text(), QString());
        // Kept, not deleted: the vendor's own file stays as it was.
        QCOMPARE(test::fileContents(obsFile), obsBefore);

        s.request(QStringLiteral("ABC - Acme Ltd"), QStringLiteral("KILLVENDOR"));
        QCOMPARE(s.prompter().texts(), QStringList{NoneLeft});
        QCOMPARE(s.prompter().messages.last().title, QStringLiteral("No Active Vendors"));
        QCOMPARE(s.prompter().messages.last().icon, MessageIcon::Exclamation);
        s.expectClosed();
        QCOMPARE(s.statuses(), QStringLiteral("DD"));
    }

    void withNoActiveVendorsTheWindowDoesNotStay() {
        Session s({QStringLiteral("OBS"), QStringLiteral("ABC")});
        QCOMPARE(s.prompter().texts(), QStringList{NoneLeft});
        s.expectClosed();
    }

    void listIsReadAgainWhenTheWindowBecomesActiveAndCloseBoxExits() {
        Session s({QStringLiteral("OBS")});
        QMdiArea* area = s.m_window->mdiArea();
        QMdiSubWindow* frame = area->activeSubWindow();
        QCOMPARE(frame, s.form->parentWidget());
        s.list()->setCurrentIndex(0);

        QVERIFY(VendorRepository::addVendor(s.ctx().systemDb(), QStringLiteral("Newco"), QStringLiteral("NEW")));
        QMdiSubWindow* other = area->addSubWindow(new QLabel(QStringLiteral("another window")));
        other->show();
        area->setActiveSubWindow(other);
        QCOMPARE(s.list()->count(), 1);
        area->setActiveSubWindow(frame);
        QCOMPARE(s.entries(), (QStringList{"ABC - Acme Ltd", "NEW - Newco"}));
        QCOMPARE(s.list()->currentIndex(), -1);
        delete other;

        frame->close();
        s.expectClosed();
        QCOMPARE(s.statuses(), QStringLiteral("AAD"));
        QVERIFY(s.prompter().messages.isEmpty());
    }
};

QTEST_MAIN(TestDeactivation)
#include "tst_deactivation.moc"
