#pragma once

#include "OrderDataFixture.h"
#include "orders/OrderForm.h"
#include "shell/MainWindow.h"

#include <QAbstractButton>
#include <QPointer>
#include <QStringList>
#include <memory>

namespace ordwell::test {

// The main window with vendor ABC open through its session (next order 1000000), and the order
// form opened from the menu as the user does.
class OrderSession : public OrderDataFixture {
public:
    OrderSession();
    ~OrderSession();

    MainWindow& window() { return *m_window; }
    QSqlDatabase db() { return vendorDb(); }

    void addItem(const QString& code, const QString& descr, const QString& price, int pack = 1, int defQty = 1);
    void addRule(const QString& start, int skipFirst, int skipLast, const QString& status = QStringLiteral("A"));

    // Opens the form through the menu entry and waits for its first activation.
    OrderForm* open(const QString& menuEntry = QStringLiteral("mnuNewOrd"));
    OrderForm* form() { return m_form; }
    QLineEdit* header(int i) { return m_form->ui().txtheader[i]; }
    QLineEdit* entry(int i) { return m_form->ui().txtitem[i]; }
    void click(QAbstractButton* button);

    // Header entry to line entry with "Start Order".
    void startOrder();
    // Types a code and Enter into whichever box has the focus, as a scanner does; then, when
    // `qty` is given, overtypes the quantity; Enter confirms it.
    void scan(const QString& code, const QString& qty = QString());
    // Types `text` into `box` (over what it holds when `over`) and presses Enter.
    void enter(QLineEdit* box, const QString& text, bool over = false);
    // Chooses a grid row the way a double-click does.
    void chooseRow(int row);

    // Stored values, read back.
    QVariant value(const QString& sql, const QVariantList& values = {});
    // The lines in line order as "code qty value status", e.g. "A1 6 9.00 L|C3 0 0.00 C".
    QString linesText(const QString& orderId);
    Money orderTotal(const QString& orderId);
    struct StoredLine {
        int line;
        QString code;
        int qty;
        Money lineval;
        QString status;
    };
    QList<StoredLine> lines(const QString& orderId);

private:
    std::unique_ptr<MainWindow> m_window;
    QPointer<OrderForm> m_form;
};

} // namespace ordwell::test
