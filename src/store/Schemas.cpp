#include "Schemas.h"

namespace ordwell {

namespace {
const QString Int = QStringLiteral("int");
const QString Str = QStringLiteral("str");
const QString Dat = QStringLiteral("dat");
const QString Cur = QStringLiteral("cur");
const QString Nul = QStringLiteral("nul");
const QString Asc = QStringLiteral("asc");

// Both kinds of database say which version of their layout they hold.
void addVersionTable(Schema& s) {
    s.AddTable(QStringLiteral("schemaversion")).AddField(QStringLiteral("version"), 0, Int, Nul, false, true);
}

Schema buildSystemSchema() {
    Schema s;
    s.AddTable(QStringLiteral("Sysset"))
        .AddField(QStringLiteral("location"), 50, Str, Nul, false, true)
        .AddField(QStringLiteral("department"), 35, Str, Nul, false, false)
        .AddField(QStringLiteral("add1"), 35, Str, Nul, false, true)
        .AddField(QStringLiteral("add2"), 35, Str, Nul, false, false)
        .AddField(QStringLiteral("add3"), 35, Str, Nul, false, false)
        .AddField(QStringLiteral("county"), 15, Str, Nul, false, true)
        .AddField(QStringLiteral("postcode"), 9, Str, Nul, false, true)
        .AddField(QStringLiteral("contact"), 55, Str, Nul, false, true)
        .AddField(QStringLiteral("telephone"), 20, Str, Nul, false, true)
        .AddField(QStringLiteral("fax"), 20, Str, Nul, false, false)
        .AddField(QStringLiteral("email"), 45, Str, Nul, false, true)
        .AddPrimaryKey(QStringLiteral("location"));
    s.AddTable(QStringLiteral("vendors"))
        .AddField(QStringLiteral("vendor"), 51, Str, Nul, false, true)
        .AddField(QStringLiteral("code"), 4, Str, Nul, false, true)
        .AddField(QStringLiteral("status"), 1, Str, Nul, false, true)
        .AddPrimaryKey(QStringLiteral("vendor"))
        .AddIndex(QStringLiteral("vendors_code"), {QStringLiteral("code")})
        .AddIndex(QStringLiteral("vendors_status"), {QStringLiteral("status")});
    s.Since(2);
    addVersionTable(s);
    s.Since(3);
    // The organisation as an electronic order names its buyer: its address on the Peppol
    // network (scheme and identifier), its registered name, its country, and the currency its
    // prices are kept in.
    s.ExtendTable(QStringLiteral("Sysset"))
        .AddField(QStringLiteral("peppolscheme"), 4, Str, Nul, false, false)
        .AddField(QStringLiteral("peppolid"), 50, Str, Nul, false, false)
        .AddField(QStringLiteral("legalname"), 100, Str, Nul, false, false)
        .AddField(QStringLiteral("country"), 2, Str, Nul, false, false)
        .AddField(QStringLiteral("currency"), 3, Str, Nul, false, false);
    return s;
}

Schema buildVendorSchema() {
    Schema s;
    s.AddTable(QStringLiteral("vendor"))
        .AddField(QStringLiteral("vendorid"), 4, Str, Nul, false, true)
        .AddField(QStringLiteral("customerid"), 12, Str, Nul, false, true)
        .AddField(QStringLiteral("add1"), 35, Str, Nul, false, true)
        .AddField(QStringLiteral("add2"), 35, Str, Nul, false, false)
        .AddField(QStringLiteral("add3"), 35, Str, Nul, false, false)
        .AddField(QStringLiteral("county"), 15, Str, Nul, false, true)
        .AddField(QStringLiteral("postcode"), 9, Str, Nul, false, true)
        .AddField(QStringLiteral("repname"), 55, Str, Nul, false, true)
        .AddField(QStringLiteral("reptel"), 20, Str, Nul, false, false)
        .AddField(QStringLiteral("repemail"), 45, Str, Nul, false, false)
        .AddField(QStringLiteral("contactname"), 55, Str, Nul, false, false)
        .AddField(QStringLiteral("contacttel"), 20, Str, Nul, false, false)
        .AddField(QStringLiteral("contactfax"), 20, Str, Nul, false, false)
        .AddField(QStringLiteral("contactemail"), 45, Str, Nul, false, false)
        .AddField(QStringLiteral("nextord"), 7, Int, Nul, false, true)
        .AddField(QStringLiteral("deactdate"), 0, Dat, Nul, false, false)
        .AddField(QStringLiteral("ordform"), 255, Str, Nul, false, true)
        .AddPrimaryKey(QStringLiteral("vendorid"));
    s.AddTable(QStringLiteral("barcodes"))
        .AddField(QStringLiteral("codenum"), 5, Int, Asc, true, true)
        .AddField(QStringLiteral("codestart"), 10, Str, Nul, false, true)
        .AddField(QStringLiteral("skipfirst"), 4, Int, Nul, false, true)
        .AddField(QStringLiteral("skiplast"), 4, Int, Nul, false, true)
        .AddField(QStringLiteral("status"), 1, Str, Nul, false, true)
        .AddPrimaryKey(QStringLiteral("codenum"));
    s.AddTable(QStringLiteral("items"))
        .AddField(QStringLiteral("code"), 25, Str, Nul, false, true)
        .AddField(QStringLiteral("descr"), 55, Str, Nul, false, true)
        .AddField(QStringLiteral("packqty"), 5, Int, Nul, false, true)
        .AddField(QStringLiteral("defqty"), 5, Int, Nul, false, true)
        .AddField(QStringLiteral("price"), 8, Cur, Nul, false, true)
        .AddField(QStringLiteral("priceexp"), 0, Dat, Nul, false, true)
        .AddPrimaryKey(QStringLiteral("code"))
        .AddIndex(QStringLiteral("items_descr"), {QStringLiteral("descr")})
        .AddIndex(QStringLiteral("items_priceexp"), {QStringLiteral("priceexp")});
    s.AddTable(QStringLiteral("orderhead"))
        .AddField(QStringLiteral("orderid"), 10, Str, Nul, false, true)
        .AddField(QStringLiteral("orderdate"), 0, Dat, Nul, false, true)
        .AddField(QStringLiteral("name"), 28, Str, Nul, false, false)
        .AddField(QStringLiteral("reference"), 28, Str, Nul, false, false)
        .AddField(QStringLiteral("status"), 1, Str, Nul, false, true)
        .AddField(QStringLiteral("totalval"), 10, Cur, Nul, false, true)
        .AddField(QStringLiteral("printdate"), 0, Dat, Nul, false, false)
        .AddField(QStringLiteral("reprintdate"), 0, Dat, Nul, false, false)
        .AddField(QStringLiteral("reprintcount"), 3, Int, Nul, false, false)
        .AddField(QStringLiteral("exportdate"), 0, Dat, Nul, false, false)
        .AddField(QStringLiteral("recvdate"), 0, Dat, Nul, false, false)
        .AddField(QStringLiteral("note1"), 100, Str, Nul, false, false)
        .AddField(QStringLiteral("note2"), 100, Str, Nul, false, false)
        .AddPrimaryKey(QStringLiteral("orderid"))
        .AddIndex(QStringLiteral("orderhead_status"), {QStringLiteral("status"), QStringLiteral("orderid")});
    // Lines have no key: the same (orderid, line) may appear twice.
    s.AddTable(QStringLiteral("orderline"))
        .AddField(QStringLiteral("orderid"), 10, Str, Nul, false, true)
        .AddField(QStringLiteral("line"), 4, Int, Nul, false, true)
        .AddField(QStringLiteral("code"), 25, Str, Nul, false, true)
        .AddField(QStringLiteral("linedate"), 0, Dat, Nul, false, true)
        .AddField(QStringLiteral("status"), 1, Str, Nul, false, true)
        .AddField(QStringLiteral("qty"), 4, Int, Nul, false, true)
        .AddField(QStringLiteral("price"), 9, Cur, Nul, false, true)
        .AddField(QStringLiteral("lineval"), 8, Cur, Nul, false, true)
        .AddField(QStringLiteral("recvqty"), 4, Int, Nul, false, true)
        .AddField(QStringLiteral("recvdate"), 0, Dat, Nul, false, false)
        .AddIndex(QStringLiteral("orderline_order"), {QStringLiteral("orderid"), QStringLiteral("line")})
        .AddIndex(QStringLiteral("orderline_code"), {QStringLiteral("code")});

    s.Since(2);
    addVersionTable(s);
    // A product barcode per item, stored as its 14-digit GTIN; no two items share one.
    s.ExtendTable(QStringLiteral("items"))
        .AddField(QStringLiteral("gtin"), 14, Str, Nul, false, false)
        .AddUniqueIndex(QStringLiteral("items_gtin"), {QStringLiteral("gtin")}, QStringLiteral("gtin IS NOT NULL"));

    s.Since(4);
    // On a server, the order each workstation is working on, until the time it last renewed
    // its claim to (by the database's clock); a workstation that stops renewing frees it.
    s.AddTable(QStringLiteral("orderlease"))
        .AddField(QStringLiteral("orderid"), 10, Str, Nul, false, true)
        .AddField(QStringLiteral("workstation"), 38, Str, Nul, false, true)
        .AddField(QStringLiteral("holder"), 120, Str, Nul, false, true)
        .AddField(QStringLiteral("expires"), 0, Dat, Nul, false, true)
        .AddPrimaryKey(QStringLiteral("orderid"))
        .AddIndex(QStringLiteral("orderlease_workstation"), {QStringLiteral("workstation")});
    // On a server, the vendor's own report files by name, so every workstation prints the same
    // order form (a path would name a file on one computer only).
    s.AddTable(QStringLiteral("reportfile"))
        .AddField(QStringLiteral("name"), 255, Str, Nul, false, true)
        .AddField(QStringLiteral("content"), 4 * 1024 * 1024, Str, Nul, false, true)
        .AddPrimaryKey(QStringLiteral("name"));

    s.Since(5);
    // The vendor as an electronic order names its seller, and the unit each item is counted
    // in (a UN/ECE code; none means pieces).
    s.ExtendTable(QStringLiteral("vendor"))
        .AddField(QStringLiteral("peppolscheme"), 4, Str, Nul, false, false)
        .AddField(QStringLiteral("peppolid"), 50, Str, Nul, false, false)
        .AddField(QStringLiteral("legalname"), 100, Str, Nul, false, false)
        .AddField(QStringLiteral("country"), 2, Str, Nul, false, false);
    s.ExtendTable(QStringLiteral("items")).AddField(QStringLiteral("unitcode"), 3, Str, Nul, false, false);
    return s;
}
} // namespace

const Schema& systemSchema() {
    static const Schema schema = buildSystemSchema();
    return schema;
}

const Schema& vendorSchema() {
    static const Schema schema = buildVendorSchema();
    return schema;
}

} // namespace ordwell
