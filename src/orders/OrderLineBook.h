#pragma once

#include "common/Money.h"
#include "common/Status.h"
#include "orders/OrderRepository.h"

#include "common/Sql.h"
#include <QDate>
#include <QHash>
#include <QList>
#include <QSqlDatabase>

#include <QSqlQuery>
#include <QString>

namespace ordwell {

// One line of the shown order, with the catalogue's description and pack beside it.
struct OrderLine {
    int line = 0;
    QString code;
    QString descr;
    int packQty = 1;
    int qty = 0;
    Money price;
    Money lineval;
    int recvQty = 0;
    QString status;
};

// What an entered quantity did: the line as it now stands and the order's new total.
struct LineChange {
    OrderLine line;
    Money total;
    bool appended = false;
};

// The lines of the order on screen: kept in memory by code for the scanner's sake, and every
// change written at once, together with the header's total, in one transaction.
class OrderLineBook {
public:
    static inline const QString NoItemFound = QStringLiteral("No Item Found!");

    explicit OrderLineBook(QSqlDatabase db);

    // Reads every line of the order in line order; description and pack come from the
    // catalogue, or "No Item Found!" and 1 when the code has gone from it.
    Result<QList<OrderLine>> open(const QString& orderId);
    void close();
    bool isOpen() const { return m_open; }
    const QString& orderId() const { return m_orderId; }
    int nextLineNumber() const { return m_nextLine; }
    const OrderLine* findByCode(const QString& code) const;

    // Records `qty` of an item against the order. A code without a line gets a new line; with
    // one, the quantity is added to it, or, when `editing` (a line chosen from the grid),
    // replaces it, 0 then cancelling the line. `header` carries the shown total in and is
    // saved with the new total. `descr` and `packQty` are what the entry boxes show.
    Result<LineChange> record(const QString& code, const QString& descr, int packQty, qint64 qty, Money price,
                              bool editing, OrderHeaderFields header, const QDate& today = QDate::currentDate());

private:
    Status saveHeader(const OrderHeaderFields& header);

    QSqlDatabase m_db;
    QString m_orderId;
    bool m_open = false;
    int m_nextLine = 1;
    QList<OrderLine> m_lines;
    QHash<QString, qsizetype> m_byCode;
    Sql::Statement m_insert;
    Sql::Statement m_update;
    Sql::Statement m_header;
};

} // namespace ordwell
