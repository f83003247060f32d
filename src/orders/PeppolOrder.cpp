#include "PeppolOrder.h"

#include "OrderHeadRow.h"
#include "OrderTransitions.h"
#include "OrderWords.h"
#include "common/Dates.h"
#include "common/Sql.h"
#include "settings/OrganisationDetails.h"

#include <QSet>
#include <QSqlQuery>
#include <QXmlStreamWriter>

namespace ordwell::PeppolOrder {

namespace {

const QString OrderNs = QStringLiteral("urn:oasis:names:specification:ubl:schema:xsd:Order-2");
const QString CacNs = QStringLiteral("urn:oasis:names:specification:ubl:schema:xsd:CommonAggregateComponents-2");
const QString CbcNs = QStringLiteral("urn:oasis:names:specification:ubl:schema:xsd:CommonBasicComponents-2");
// The GTIN's scheme among the ISO 6523 identifier schemes.
const QString GtinScheme = QStringLiteral("0160");

// An amount with exactly two decimals; a unit price with as many as it has (up to four).
QString ublAmount(Money money) {
    return money.roundedToPence().toPlainString();
}

QString ublPrice(Money money) {
    const qint64 units = money.tenThousandths();
    const qint64 whole = (units < 0 ? -units : units);
    QString text = QStringLiteral("%1.%2").arg(whole / 10000).arg(whole % 10000, 4, 10, QLatin1Char('0'));
    while (text.endsWith(QLatin1Char('0')) && text.indexOf(QLatin1Char('.')) < text.size() - 3)
        text.chop(1);
    return units < 0 ? QStringLiteral("-") + text : text;
}

Result<PartyDetails> buyerDetailsFrom(const QSqlDatabase& systemDb) {
    auto loaded = OrganisationDetailsStore(systemDb).load();
    if (!loaded)
        return loaded.status();
    const OrganisationDetails d = loaded.value().value_or(OrganisationDetails{});
    return PartyDetails{d[Location], d[Address1], d[Address2],  d[Address3], d[Postcode],
                        d[County],   d[Contact],  d[Telephone], d[Email]};
}

Result<PartyDetails> sellerDetailsFrom(const QSqlDatabase& vendorDb, const QString& vendorName) {
    auto query = Sql::exec(vendorDb, QStringLiteral("SELECT add1, add2, add3, postcode, county, contactname, "
                                                    "contacttel, contactemail, repname, reptel, repemail FROM vendor"));
    if (!query)
        return query.status();
    QSqlQuery& q = query.value();
    PartyDetails details;
    details.name = vendorName;
    if (q.next()) {
        details.street = q.value(0).toString();
        details.additionalStreet = q.value(1).toString();
        details.city = q.value(2).toString();
        details.postcode = q.value(3).toString();
        details.county = q.value(4).toString();
        // The contact when there is one, else the representative.
        const int person = q.value(5).toString().trimmed().isEmpty() ? 8 : 5;
        details.contact = q.value(person).toString();
        details.telephone = q.value(person + 1).toString();
        details.email = q.value(person + 2).toString();
    }
    return details;
}

Status readOrderLines(const QSqlDatabase& vendorDb, Order& order) {
    auto query =
        Sql::exec(vendorDb,
                  QStringLiteral("SELECT l.line, l.code, i.descr, l.qty, l.price, i.unitcode, i.gtin, i.priceexp "
                                 "FROM orderline l LEFT JOIN items i ON i.code = l.code "
                                 "WHERE l.orderid = ? AND l.status <> ? ORDER BY l.line"),
                  {order.orderId, OrderStatus::Cancelled});
    if (!query)
        return query.status();
    QSqlQuery& q = query.value();
    QSet<QString> ids;
    while (q.next()) {
        Line line;
        // Line numbers are kept as typed and may repeat; each line of the document needs its own.
        line.id = q.value(0).toString();
        for (int n = 2; ids.contains(line.id); ++n)
            line.id = QStringLiteral("%1-%2").arg(q.value(0).toString()).arg(n);
        ids.insert(line.id);
        line.code = q.value(1).toString();
        line.name = q.value(2).toString().trimmed();
        if (line.name.isEmpty())
            line.name = line.code; // an item no longer in the catalogue is named by its code
        line.quantity = q.value(3).toInt();
        line.price = Money::fromTenThousandths(q.value(4).toLongLong());
        line.amount = (line.price * line.quantity).roundedToPence();
        line.unit = q.value(5).toString().trimmed();
        if (line.unit.isEmpty())
            line.unit = DefaultUnit;
        line.gtin = q.value(6).toString();
        const QDate expires = Dates::dateFromStored(q.value(7).toString());
        if (expires.isValid() && expires >= order.issueDate &&
            (!order.validUntil.isValid() || expires < order.validUntil))
            order.validUntil = expires;
        order.total += line.amount;
        order.lines << line;
    }
    return Status::ok();
}

// What the order lacks, in the user's words.
QStringList missingDetails(const Order& order) {
    QStringList missing;
    for (int field : PeppolRules::missing(order.buyer, PeppolSide::Organisation))
        missing << QStringLiteral("the organisation's %1").arg(PeppolRules::fieldName(field));
    for (int field : PeppolRules::missing(order.seller, PeppolSide::Vendor))
        missing << QStringLiteral("the vendor's %1").arg(PeppolRules::fieldName(field));
    for (const auto& problem : PeppolRules::problems(order.buyer, PeppolSide::Organisation))
        missing << QStringLiteral("a correct %1 for the organisation (%2)")
                       .arg(PeppolRules::fieldName(problem.field), problem.message);
    for (const auto& problem : PeppolRules::problems(order.seller, PeppolSide::Vendor))
        missing << QStringLiteral("a correct %1 for the vendor (%2)")
                       .arg(PeppolRules::fieldName(problem.field), problem.message);
    return missing;
}

class UblWriter {
public:
    explicit UblWriter(QByteArray* out) : m_xml(out) { m_xml.setAutoFormatting(true); }

    void basic(const QString& name, const QString& value, const QString& attribute = {},
               const QString& attrValue = {}) {
        if (value.trimmed().isEmpty())
            return; // the format allows no empty elements
        m_xml.writeStartElement(CbcNs, name);
        if (!attribute.isEmpty())
            m_xml.writeAttribute(attribute, attrValue);
        m_xml.writeCharacters(value.trimmed());
        m_xml.writeEndElement();
    }
    void amount(const QString& name, const QString& value, const QString& currency) {
        basic(name, value, QStringLiteral("currencyID"), currency);
    }
    void open(const QString& name) { m_xml.writeStartElement(CacNs, name); }
    void close() { m_xml.writeEndElement(); }

    void party(const QString& role, const PeppolParty& party, const PartyDetails& details) {
        open(role);
        open(QStringLiteral("Party"));
        basic(QStringLiteral("EndpointID"), party.endpoint, QStringLiteral("schemeID"), party.scheme);
        if (!details.name.trimmed().isEmpty()) {
            open(QStringLiteral("PartyName"));
            basic(QStringLiteral("Name"), details.name);
            close();
        }
        open(QStringLiteral("PostalAddress"));
        basic(QStringLiteral("StreetName"), details.street);
        basic(QStringLiteral("AdditionalStreetName"), details.additionalStreet);
        basic(QStringLiteral("CityName"), details.city);
        basic(QStringLiteral("PostalZone"), details.postcode);
        basic(QStringLiteral("CountrySubentity"), details.county);
        open(QStringLiteral("Country"));
        basic(QStringLiteral("IdentificationCode"), party.country);
        close();
        close();
        open(QStringLiteral("PartyLegalEntity"));
        basic(QStringLiteral("RegistrationName"), party.legalName);
        close();
        if (!(details.contact + details.telephone + details.email).trimmed().isEmpty()) {
            open(QStringLiteral("Contact"));
            basic(QStringLiteral("Name"), details.contact);
            basic(QStringLiteral("Telephone"), details.telephone);
            basic(QStringLiteral("ElectronicMail"), details.email);
            close();
        }
        close();
        close();
    }

    QXmlStreamWriter m_xml;
};

} // namespace

QString FileName(const QString& orderId) {
    return orderId + QStringLiteral(".xml");
}

Result<Order> gather(const QSqlDatabase& systemDb, const QSqlDatabase& vendorDb, const QString& vendorName,
                     const QString& orderId) {
    if (const Status sendable = OrderTransitions::maySend(vendorDb, orderId); !sendable)
        return sendable;
    auto head = OrderHeadRow::read(vendorDb, orderId);
    if (!head)
        return head.status();
    if (!head.value())
        return Status::fail(QStringLiteral("There is no order %1 of this vendor.").arg(orderId));
    Order order;
    order.orderId = orderId;
    order.issueDate = head.value()->orderDate;
    order.reference = head.value()->reference;
    order.note = QStringList{head.value()->note1.trimmed(), head.value()->note2.trimmed()}
                     .filter(QRegularExpression(QStringLiteral("\\S")))
                     .join(QLatin1Char('\n'));

    auto buyer = PeppolPartyStore::load(systemDb, PeppolSide::Organisation);
    if (!buyer)
        return buyer.status();
    order.buyer = PeppolRules::normalised(buyer.value());
    auto seller = PeppolPartyStore::load(vendorDb, PeppolSide::Vendor);
    if (!seller)
        return seller.status();
    order.seller = PeppolRules::normalised(seller.value());
    auto buyerDetails = buyerDetailsFrom(systemDb);
    if (!buyerDetails)
        return buyerDetails.status();
    order.buyerDetails = buyerDetails.value();
    auto sellerDetails = sellerDetailsFrom(vendorDb, vendorName);
    if (!sellerDetails)
        return sellerDetails.status();
    order.sellerDetails = sellerDetails.value();

    if (const QStringList missing = missingDetails(order); !missing.isEmpty())
        return Status::fail(QStringLiteral("The order %1 cannot be written as a Peppol order until these details "
                                           "are given with \"Electronic Ordering...\" in the System Defaults and "
                                           "vendor windows:\n- %2")
                                .arg(orderId, missing.join(QStringLiteral("\n- "))));
    if (Status read = readOrderLines(vendorDb, order); !read)
        return read;
    // The order holds as long as the prices it was made with; with none to go by, a month.
    if (!order.validUntil.isValid())
        order.validUntil = order.issueDate.addDays(30);
    if (order.lines.isEmpty())
        return Status::fail(
            QStringLiteral("The order %1 has no line left to order, so it cannot be written as a Peppol order.")
                .arg(orderId));
    return order;
}

QByteArray document(const Order& order) {
    QByteArray out;
    UblWriter w(&out);
    QXmlStreamWriter& xml = w.m_xml;
    const QString currency = order.buyer.currency;
    xml.writeStartDocument();
    xml.writeDefaultNamespace(OrderNs);
    xml.writeNamespace(CacNs, QStringLiteral("cac"));
    xml.writeNamespace(CbcNs, QStringLiteral("cbc"));
    xml.writeStartElement(OrderNs, QStringLiteral("Order"));
    w.basic(QStringLiteral("CustomizationID"), CustomizationId);
    w.basic(QStringLiteral("ProfileID"), ProfileId);
    w.basic(QStringLiteral("ID"), order.orderId);
    w.basic(QStringLiteral("IssueDate"), order.issueDate.toString(Qt::ISODate));
    w.basic(QStringLiteral("OrderTypeCode"), QStringLiteral("220"));
    w.basic(QStringLiteral("Note"), order.note);
    w.basic(QStringLiteral("DocumentCurrencyCode"), currency);
    w.basic(QStringLiteral("CustomerReference"), order.reference);
    w.open(QStringLiteral("ValidityPeriod"));
    w.basic(QStringLiteral("EndDate"), order.validUntil.toString(Qt::ISODate));
    w.close();
    w.party(QStringLiteral("BuyerCustomerParty"), order.buyer, order.buyerDetails);
    w.party(QStringLiteral("SellerSupplierParty"), order.seller, order.sellerDetails);

    w.open(QStringLiteral("AnticipatedMonetaryTotal"));
    w.amount(QStringLiteral("LineExtensionAmount"), ublAmount(order.total), currency);
    w.amount(QStringLiteral("PayableAmount"), ublAmount(order.total), currency);
    w.close();

    for (const Line& line : order.lines) {
        w.open(QStringLiteral("OrderLine"));
        w.open(QStringLiteral("LineItem"));
        w.basic(QStringLiteral("ID"), line.id);
        w.basic(QStringLiteral("Quantity"), QString::number(line.quantity), QStringLiteral("unitCode"), line.unit);
        w.amount(QStringLiteral("LineExtensionAmount"), ublAmount(line.amount), currency);
        w.open(QStringLiteral("Price"));
        w.amount(QStringLiteral("PriceAmount"), ublPrice(line.price), currency);
        w.close();
        w.open(QStringLiteral("Item"));
        w.basic(QStringLiteral("Name"), line.name);
        w.open(QStringLiteral("SellersItemIdentification"));
        w.basic(QStringLiteral("ID"), line.code);
        w.close();
        if (!line.gtin.isEmpty()) {
            w.open(QStringLiteral("StandardItemIdentification"));
            w.basic(QStringLiteral("ID"), line.gtin, QStringLiteral("schemeID"), GtinScheme);
            w.close();
        }
        w.close();
        w.close();
        w.close();
    }
    xml.writeEndElement();
    xml.writeEndDocument();
    return out;
}

OrderExport::ExportResult exportOrder(const QSqlDatabase& systemDb, const QSqlDatabase& vendorDb,
                                      const QString& vendorName, const QString& path, const QString& orderId) {
    auto order = gather(systemDb, vendorDb, vendorName, orderId);
    if (!order) {
        OrderExport::ExportResult refused;
        refused.path = path;
        refused.message = order.message();
        return refused;
    }
    return OrderExport::WriteAndMark(vendorDb, orderId, path, document(order.value()));
}

} // namespace ordwell::PeppolOrder
