#include "OrderFixture.h"

#include "app/MenuMasks.h"
#include "app/VendorSession.h"
#include "common/Sql.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

namespace ordwell::test {

OrderSession::OrderSession() : OrderDataFixture(true) {
    m_window = openMainWindow(ctx());
    m_window->ApplyMenuMask(MenuMasks::VendorOpen);
}

OrderSession::~OrderSession() {
    if (m_form)
        delete m_form->parentWidget();
    m_window.reset();
    ctx().vendorSession().close();
}

void OrderSession::addItem(const QString& code, const QString& descr, const QString& price, int pack, int defQty) {
    exec(QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp) VALUES (?,?,?,?,?,?)"),
         {code, descr, pack, defQty, Money::parse(price)->tenThousandths(), QStringLiteral("2030-01-01")});
}

void OrderSession::addRule(const QString& start, int skipFirst, int skipLast, const QString& status) {
    exec(QStringLiteral("INSERT INTO barcodes (codestart, skipfirst, skiplast, status) VALUES (?,?,?,?)"),
         {start, skipFirst, skipLast, status});
}

OrderForm* OrderSession::open(const QString& menuEntry) {
    m_window->activateWindow();
    m_window->triggerMenu(menuEntry);
    m_form = m_window->findChild<OrderForm*>(QStringLiteral("frmorder"));
    if (m_form && !QTest::qWaitFor([this] { return m_form->ActivatedOnce; }, 5000))
        qWarning("the order form was never activated");
    return m_form;
}

void OrderSession::click(QAbstractButton* button) {
    QTest::mouseClick(button, Qt::LeftButton);
}

void OrderSession::startOrder() {
    click(m_form->ui().cmdstartorder);
}

void OrderSession::scan(const QString& code, const QString& qty) {
    // Keys go to the focused box, wherever the form has put the focus.
    QWidget* target = QApplication::focusWidget();
    QTest::keyClicks(target, code);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    if (!qty.isNull()) {
        QWidget* box = QApplication::focusWidget();
        if (auto* edit = qobject_cast<QLineEdit*>(box))
            edit->selectAll();
        QTest::keyClicks(box, qty);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
}

void OrderSession::enter(QLineEdit* box, const QString& text, bool over) {
    if (over)
        box->selectAll();
    QTest::keyClicks(box, text);
    QTest::keyClick(box, Qt::Key_Return);
}

void OrderSession::chooseRow(int row) {
    QTableWidget* grid = m_form->ui().flxitems;
    grid->setCurrentCell(row, 1);
    const QRect cell = grid->visualRect(grid->model()->index(row, 1));
    // A real double-click starts with a press; the view acts only on the row pressed.
    QTest::mousePress(grid->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, cell.center());
}

QVariant OrderSession::value(const QString& sql, const QVariantList& values) {
    auto v = Sql::scalar(db(), sql, values);
    return v ? *v : QVariant();
}

QString OrderSession::linesText(const QString& orderId) {
    QStringList text;
    for (const StoredLine& line : lines(orderId))
        text << QStringLiteral("%1 %2 %3 %4").arg(line.code).arg(line.qty).arg(line.lineval.toString(), line.status);
    return text.join(QLatin1Char('|'));
}

Money OrderSession::orderTotal(const QString& orderId) {
    return Money::fromTenThousandths(
        value(QStringLiteral("SELECT totalval FROM orderhead WHERE orderid = ?"), {orderId}).toLongLong());
}

QList<OrderSession::StoredLine> OrderSession::lines(const QString& orderId) {
    QList<StoredLine> result;
    auto q = Sql::exec(db(),
                       QStringLiteral("SELECT line, code, qty, lineval, status FROM orderline WHERE orderid = ? "
                                      "ORDER BY line"),
                       {orderId});
    while (q && q.value().next())
        result.append({q.value().value(0).toInt(), q.value().value(1).toString(), q.value().value(2).toInt(),
                       Money::fromTenThousandths(q.value().value(3).toLongLong()), q.value().value(4).toString()});
    return result;
}

} // namespace ordwell::test
