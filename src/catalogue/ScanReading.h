#pragma once

#include <QDate>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

namespace ordwell {

// The group separator (ASCII 29) that ends a variable-length field of a GS1 element string.
inline constexpr QChar GroupSeparator = QChar(0x1D);

// One field of a GS1 element string: its Application Identifier and its value.
struct Gs1Field {
    QString ai;
    QString value;
};

// What the raw text of one scan turned out to be.
struct ScanReading {
    enum class Kind {
        Plain,   // an ordinary code, for the item codes and the barcode rules
        Gtin,    // EAN-13, UPC-A, EAN-8 or GTIN-14 with a right check digit
        Misread, // digits of a GTIN's length whose check digit is wrong
        Gs1,     // a GS1 element string that reads correctly
        Refused, // a GS1 element string with a bad field or an impossible combination
    };
    Kind kind = Kind::Plain;
    // Plain, Gtin and Misread: the code without any symbology identifier. Vendors' own item codes
    // can be all digits, so a Misread is only worth saying when this code finds nothing either.
    QString code;
    QString gtin;                // 14 digits: the GTIN read, or the (01)/(02) of an element string
    std::optional<int> quantity; // (37) count of trade items, else (30) count of items
    QString batch;               // (10)
    std::optional<QDate> expiry; // (17)
    QString netWeightKg;         // (310n) as a decimal text, "1.250"
    QList<Gs1Field> fields;      // every field, in the order scanned
    QStringList warnings;        // read, but worth a look (an expiry passed, a lost separator)
    QString refusal;             // Misread and Refused: what is wrong, naming the field

    bool isGs1() const { return kind == Kind::Gs1 || kind == Kind::Refused; }
};

namespace Gtin {
// True when the last digit is the GS1 check digit of the others (any length from 2).
bool checkDigitIsRight(const QString& digits);
// True for 8, 12, 13 or 14 digits: the lengths a GTIN comes in.
bool hasGtinLength(const QString& text);
// A GTIN of any length written as 14 digits, zeros in front.
QString to14(const QString& digits);
} // namespace Gtin

// Puts the real group separator where a scanner typed its substitute (a single character such
// as "^"; anything longer is a key, handled where keys arrive).
QString normaliseGroupSeparators(const QString& text, const QString& substitute);

// Reads scans. Holds GS1's parser, which is costly to set up: keep one reader and reuse it.
class ScanReader {
public:
    ScanReader();
    ~ScanReader();
    ScanReader(const ScanReader&) = delete;
    ScanReader& operator=(const ScanReader&) = delete;

    // `text` as typed into an entry box, group separators already normalised; `today` decides
    // whether an expiry has passed.
    ScanReading read(const QString& text, const QDate& today);

private:
    struct Engine;
    void readElementString(const QByteArray& scanData, ScanReading& reading, const QDate& today);
    void lookForLostSeparators(ScanReading& reading);
    bool isPredefinedLength(const Gs1Field& field);

    std::unique_ptr<Engine> m_engine;
    QHash<QString, bool> m_predefinedLength;
};

} // namespace ordwell
