#include "CatalogueSession.h"
#include "catalogue/Find.h"
#include "catalogue/FindForm.h"
#include "catalogue/FindListModel.h"
#include "catalogue/ItemForm.h"
#include "common/Sql.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRandomGenerator>
#include <QSqlQuery>
#include <QTest>

using namespace ordwell;

namespace {

// Items whose descriptions are given in the list's own order; stored in reverse, so the order
// shown must come from the query.
void addDescriptions(test::CatalogueSession& s, const QStringList& descriptions) {
    for (qsizetype i = descriptions.size() - 1; i >= 0; --i)
        s.addItem(QStringLiteral("I%1").arg(i), descriptions[i]);
}

// What the typed-prefix rule should pick, worked out by reading the whole list.
int expectedRow(const QStringList& list, const QString& typed, int current) {
    for (int row = 1; row < list.size(); ++row) {
        if (list[row].startsWith(typed, Qt::CaseInsensitive))
            return row;
    }
    if (!list.isEmpty() && list[0].startsWith(typed, Qt::CaseInsensitive))
        return 0;
    return current;
}

// The find window over the open vendor's item descriptions, shown with its search box focused.
class ShownFind {
public:
    explicit ShownFind(test::CatalogueSession& s) : form(s.window.get()) {
        form.SetFindPrompt(Find::ItemPrompt);
        if (!form.SetFindQuery(s.db(), Find::itemDescriptions()))
            qFatal("cannot read the descriptions");
        form.show();
    }
    QLineEdit* find() { return test::child<QLineEdit>(&form, QStringLiteral("txtfind")); }
    QListView* view() { return test::child<QListView>(&form, QStringLiteral("List1")); }
    QString chosen() { return view()->currentIndex().data().toString(); }

    FindForm form;
};

void doubleClickCurrent(QWidget* form) {
    auto* list = test::child<QListView>(form, QStringLiteral("List1"));
    const QRect at = list->visualRect(list->currentIndex());
    // A double-click counts on the entry the press was on, as with a real mouse.
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at.center());
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at.center());
}

} // namespace

class TestFind : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    // Typing selects the first entry after the first one that begins with the text, in any
    // case of letters, wrapping round to the first entry only when no later one matches.
    void typingSelectsByPrefix_data() {
        QTest::addColumn<QStringList>("list");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("selected");

        // Case, ties and apostrophes are the long list's; these are what the window does with the rule's answer.
        const QStringList apples{"Apple", "Apple pie", "Banana"};
        QTest::newRow("second entry beats the first") << apples << "apple" << 1;
        QTest::newRow("first entry when alone") << QStringList{"Apple", "Banana", "Cherry"} << "app" << 0;
        QTest::newRow("a later entry") << apples << "b" << 2;
        QTest::newRow("no match selects nothing") << apples << "x" << -1;
        QTest::newRow("no match keeps the selection") << apples << "bx" << 2;
    }
    void typingSelectsByPrefix() {
        QFETCH(QStringList, list);
        QFETCH(QString, typed);
        QFETCH(int, selected);
        test::CatalogueSession s;
        addDescriptions(s, list);
        ShownFind f(s);
        QTRY_COMPARE(QApplication::focusWidget(), f.find());
        QTest::keyClicks(f.find(), typed);
        QCOMPARE(f.view()->currentIndex().isValid() ? f.view()->currentIndex().row() : -1, selected);
        if (selected >= 0)
            QCOMPARE(f.chosen(), list[selected]);
        QCOMPARE(QApplication::focusWidget(), f.find());
    }

    // A scanned product barcode goes to its item, and the chosen item's GTIN is shown.
    void productBarcodeGoesToItsEntry() {
        test::CatalogueSession s;
        addDescriptions(s, {"Apple", "Banana", "Cherry"});
        QVERIFY(Sql::run(s.db(), QStringLiteral("UPDATE items SET gtin = '05012345670010' WHERE descr = 'Banana'")));
        ShownFind f(s);
        auto* detail = test::child<QLabel>(&f.form, QStringLiteral("lbldetail"));
        QTRY_COMPARE(QApplication::focusWidget(), f.find());
        QTest::keyClicks(f.find(), QStringLiteral("5012345670010"));
        QCOMPARE(f.chosen(), QStringLiteral("Banana"));
        QCOMPARE(detail->text(), QStringLiteral("GTIN: 05012345670010"));
        f.find()->selectAll();
        QTest::keyClicks(f.find(), QStringLiteral("c"));
        QCOMPARE(detail->text(), QStringLiteral("GTIN: none"));
        // A wrong check digit is no barcode: nothing moves.
        f.find()->selectAll();
        QTest::keyClicks(f.find(), QStringLiteral("5012345670011"));
        QCOMPARE(f.chosen(), QStringLiteral("Cherry"));
    }

    // A long list is read in bounded blocks, in the order of its index (letters without regard
    // to case), and the prefix rule agrees with reading the whole list, for typed texts in every
    // mix of case.
    void longListAgreesWithAPlainScan() {
        test::CatalogueSession s;
        QRandomGenerator random(20261123);
        const QString letters = QStringLiteral("aAbBcC '");
        auto randomText = [&](int maxLength) {
            QString text;
            const int length = 1 + random.bounded(maxLength);
            for (int c = 0; c < length; ++c)
                text += letters.at(random.bounded(letters.size()));
            return text;
        };
        QStringList descriptions;
        {
            Sql::Transaction tx(s.db());
            QSqlQuery insert(s.db());
            QVERIFY(insert.prepare(QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                                                  "VALUES (?, ?, 1, 1, 100, '2099-12-31')")));
            for (int i = 0; i < 20000; ++i) {
                descriptions << randomText(6);
                insert.bindValue(0, QStringLiteral("C%1").arg(i));
                insert.bindValue(1, descriptions.last());
                QVERIFY(insert.exec());
            }
            QVERIFY(tx.commit());
        }
        // Entries equal but for case may come in either order; the rule cannot tell them apart.
        std::stable_sort(descriptions.begin(), descriptions.end(),
                         [](const QString& a, const QString& b) { return a.toLower() < b.toLower(); });

        FindListModel model(s.db(), Find::itemDescriptions());
        QVERIFY(model.open());
        QCOMPARE(model.rowCount(), descriptions.size());
        QStringList shown;
        for (int row = 0; row < model.rowCount(); ++row) {
            shown << model.textAt(row);
            QCOMPARE(shown.last().toLower(), descriptions[row].toLower());
        }
        QVERIFY(model.rowsHeld() <= FindListModel::MaxBlocks * FindListModel::BlockRows);
        QCOMPARE(model.textAt(model.rowCount()), QString());
        shown.sort();
        QStringList all = descriptions;
        all.sort();
        QCOMPARE(shown, all);

        for (int i = 0; i < 300; ++i) {
            const QString typed = randomText(4);
            QCOMPARE(model.rowForPrefix(typed, 7), expectedRow(descriptions, typed, 7));
        }
    }

    // The count text for no, one and several records; an empty list is disabled; Enter in the
    // search box chooses nothing; every value label reads its own text.
    void countTextAndEmptyList_data() {
        QTest::addColumn<int>("items");
        QTest::addColumn<QString>("count");
        QTest::newRow("none") << 0 << "There are 0 records";
        QTest::newRow("one") << 1 << "There are 1 records";
    }
    void countTextAndEmptyList() {
        QFETCH(int, items);
        QFETCH(QString, count);
        test::CatalogueSession s;
        for (int i = 0; i < items; ++i)
            s.addItem(QStringLiteral("X%1").arg(i), QStringLiteral("Thing %1").arg(i));
        ShownFind f(s);
        QCOMPARE(test::child<QLabel>(&f.form, QStringLiteral("lblcount"))->text(), count);
        QCOMPARE(f.view()->isEnabled(), items > 0);
        QCOMPARE(f.view()->model() ? f.view()->model()->rowCount() : 0, items);
        QCOMPARE(test::labelsHidingTheirText(&f.form), QStringList());

        QTest::keyClicks(f.find(), QStringLiteral("Thing"));
        test::pressEnter(f.find());
        QVERIFY(f.form.isVisible());
        QCOMPARE(f.form.FindResult(), QString());
    }

    // The whole protocol as a caller sees it: the window over the open vendor's descriptions,
    // the chosen text back after a double-click, nothing after Cancel, Escape or the close box.
    void callerGetsTheChoiceOrNothing_data() {
        QTest::addColumn<QString>("ending");
        QTest::addColumn<QString>("result");
        QTest::newRow("double-click") << QStringLiteral("double-click") << QStringLiteral("Banana split");
        for (const char* ending : {"cancel", "escape", "close box"})
            QTest::newRow(ending) << QString::fromLatin1(ending) << QString();
    }
    void callerGetsTheChoiceOrNothing() {
        QFETCH(QString, ending);
        QFETCH(QString, result);
        test::CatalogueSession s;
        addDescriptions(s, {"Apple", "Banana", "Banana split", "Cherry"});
        QString prompt;
        test::ModalAnswerer answerer([&](QWidget* modal) {
            if (modal->objectName() != QLatin1String("frmfind"))
                return;
            prompt = test::child<QLabel>(modal, QStringLiteral("lbltable"))->text();
            QTest::keyClicks(test::child<QLineEdit>(modal, QStringLiteral("txtfind")), QStringLiteral("banana "));
            if (ending == QLatin1String("double-click"))
                doubleClickCurrent(modal);
            else if (ending == QLatin1String("cancel"))
                test::clickButton(modal, QStringLiteral("cmdcancel"));
            else if (ending == QLatin1String("escape"))
                QTest::keyClick(modal, Qt::Key_Escape);
            else
                modal->close();
        });
        const auto chosen = Find::findItemDescription(s.ctx(), s.window.get(), Find::OrderFormMask);
        QCOMPARE(answerer.answered(), 1);
        QCOMPARE(prompt, Find::ItemPrompt);
        QCOMPARE(chosen.value_or(QString()), result);
        QCOMPARE(chosen.has_value(), !result.isEmpty());
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(s.menus(), Find::OrderFormMask.left(18));
        QVERIFY(s.prompter().messages.isEmpty());
    }

    // The item window's Find: the chosen description's item is shown and the menus restored;
    // Cancel leaves the item shown; a description no item has is reported.
    void itemWindowFind() {
        test::CatalogueSession s;
        s.addItem(QStringLiteral("A1"), QStringLiteral("Apple"));
        s.addItem(QStringLiteral("B2"), QStringLiteral("Banana"));
        s.addItem(QStringLiteral("C3"), QStringLiteral("Cherry"));
        s.window->triggerMenu(QStringLiteral("mnueditms"));
        auto* form = s.window->findChild<ItemForm*>(QStringLiteral("frmaddedititem"));
        QVERIFY(form);
        auto* findButton = test::child<QPushButton>(form, QStringLiteral("cmdbutton_%1").arg(ItemForm::Find));
        auto* code = test::child<QLineEdit>(form, QStringLiteral("txtbox_0"));
        QCOMPARE(code->text(), QStringLiteral("A1"));

        {
            test::ModalAnswerer answerer([](QWidget* modal) {
                QTest::keyClicks(test::child<QLineEdit>(modal, QStringLiteral("txtfind")), QStringLiteral("ch"));
                doubleClickCurrent(modal);
            });
            findButton->click();
            QCOMPARE(answerer.answered(), 1);
        }
        QCOMPARE(code->text(), QStringLiteral("C3"));
        QCOMPARE(s.menus(), Find::ItemFormMask.left(18));

        {
            test::ModalAnswerer answerer([](QWidget* modal) { test::clickButton(modal, QStringLiteral("cmdcancel")); });
            findButton->click();
            QCOMPARE(answerer.answered(), 1);
        }
        QCOMPARE(code->text(), QStringLiteral("C3"));
        QVERIFY(s.prompter().messages.isEmpty());

        QString askedPrompt;
        Find::ScriptedFind scripted([&](const QString& prompt, const FindQuery&) {
            askedPrompt = prompt;
            return std::optional<QString>(QStringLiteral("Durian"));
        });
        findButton->click();
        QCOMPARE(askedPrompt, Find::ItemPrompt);
        QCOMPARE(s.prompter().texts(), QStringList{QStringLiteral("Item description not found.")});
        QCOMPARE(s.prompter().messages.last().title, QStringLiteral("Item Description Error"));
        QCOMPARE(s.prompter().messages.last().icon, MessageIcon::Critical);
        s.prompter().clear();
    }
};

QTEST_MAIN(TestFind)
#include "tst_find.moc"
